# Takes pictures of Quillo on a Windows desktop, for somebody who has none:
#   windows_screenshots.ps1 -Tree BUILD-TREE -Output FOLDER
# Starts the program with the demo's notes in an empty profile and closes it again. It refuses to touch notes that are there.
param([Parameter(Mandatory)] [string] $Tree, [Parameter(Mandatory)] [string] $Output)
$ErrorActionPreference = 'Stop'
Add-Type -AssemblyName System.Windows.Forms, System.Drawing

$program = Join-Path $Tree 'quillo.exe'
$probe = Join-Path $Tree 'tests\window_probe.exe'
$notes = Join-Path $env:LOCALAPPDATA 'Marrowind\Notes'
if (Test-Path (Join-Path $notes '*.qln')) { throw "There are notes in $notes. They are left alone." }
New-Item -ItemType Directory -Force $Output, $notes | Out-Null

function Save-Screen([string] $name) {
    $screen = [System.Windows.Forms.Screen]::PrimaryScreen.Bounds
    $picture = New-Object System.Drawing.Bitmap $screen.Width, $screen.Height
    $graphics = [System.Drawing.Graphics]::FromImage($picture)
    $graphics.CopyFromScreen($screen.Location, [System.Drawing.Point]::Empty, $screen.Size)
    $picture.Save((Join-Path (Resolve-Path $Output) "$name.png"))
    $graphics.Dispose()
    $picture.Dispose()
}

# Ends when the program is as the word says; fails when it is not within a minute.
function Wait-For([string] $word) {
    & $probe $word 60 | Out-Null
    if ($LASTEXITCODE -ne 0) { throw "Quillo is not '$word' within a minute." }
}

python (Join-Path $PSScriptRoot 'demo_notes.py') $notes
if ($LASTEXITCODE -ne 0) { throw 'The notes of the demo could not be written.' }
reg add 'HKCU\Software\Marrowind\Quillo' /v 'Shown Help' /t REG_DWORD /d 1 /f | Out-Null
Start-Process $program
Wait-For 'wait'
Save-Screen 'notes'
& $program /new
Wait-For 'wait'
Save-Screen 'new-note'
& $program /close
Wait-For 'gone'
Remove-Item (Join-Path $notes '*.qln')
