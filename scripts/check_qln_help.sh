#!/usr/bin/env bash
# Checks the documents that are generated from qln's command line: check_qln_help.sh QLN FOLDER
# Each of them has every command, the man page and the help page are well-formed, and the completion works.
set -euo pipefail
qln=$1 folder=$2
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

for pair in man:qln.1 help:qln.html bash:qln.bash powershell:qln.ps1; do
    document=$folder/${pair#*:}
    "$qln" --internal-generate "${pair%%:*}" | cmp - "$document" || fail "$document is not what the program writes"
    for command in list show find path export new import backup restore doctor open quit; do
        grep -q "\b$command\b" "$document" || fail "$document does not name $command"
    done
done
if "$qln" --internal-generate nonsense; then fail "an unknown document is written"; fi

warnings=$(groff -man -Tutf8 -ww -z "$folder/qln.1" 2>&1) || fail "the man page cannot be set: $warnings"
[[ -z $warnings ]] || fail "the man page has faults: $warnings"
tidy -quiet -errors --accessibility-check 0 "$folder/qln.html" || fail "the help page has faults"

bash -n "$folder/qln.bash"
# shellcheck disable=SC1091  # made by the build
source "$folder/qln.bash"
completed() {
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    COMPREPLY=()
    _qln
    printf '%s ' "${COMPREPLY[@]}"
}
[[ $(completed qln sh) == 'show ' ]] || fail "qln sh<Tab> gives $(completed qln sh)"
[[ $(completed qln export --format m) == 'markdown ' ]] || fail "the formats are not completed"
[[ $(completed qln new --re) == '--remind ' ]] || fail "the options of new are not completed"
[[ $(completed qln --fo) == '--folder ' ]] || fail "the options of the program are not completed"
echo "the documents are sound"
