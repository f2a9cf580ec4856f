#include "command_model.h"

#include "version.h"

namespace quillo::qln {
namespace {

constexpr const char* kAbout =
    "Finds, reads, makes and takes out Quillo's notes from a console. A note is named by its number in the list, by "
    "its id, by its file, or by words that only this note has.";
constexpr const char* kExitCodes =
    "Exit codes: 0 done, 1 nothing found, 2 wrong use, 3 could not be done.\n"
    "On Linux the notes are those of --folder, of $QUILLO_NOTES, of $WINEPREFIX, or of ./run.sh, the first that is "
    "given.";

void AddClosed(CLI::App& app, Options& options) {
    app.add_flag("--closed", options.closed, "Also the notes that were closed into the folder for notes");
}

void AddWhich(CLI::App& app, Options& options, bool required) {
    app.add_option("WHICH", options.words, "A number, an id, a file or words")
        ->type_name("")
        ->required(required)
        ->expected(1, 1000);
}

void DescribeList(CLI::App& app, Options& options) {
    app.add_flag("--json", options.json, "As a JSON array");
    AddClosed(app, options);
}

void DescribeShow(CLI::App& app, Options& options) {
    AddWhich(app, options, true);
    AddClosed(app, options);
}

void DescribeFind(CLI::App& app, Options& options) {
    app.add_option("WORDS", options.words,
                   "All of them must be in the note, in any letter case, with or without accents")
        ->required()
        ->expected(1, 1000);
    AddClosed(app, options);
}

void DescribePath(CLI::App& app, Options& options) {
    AddWhich(app, options, false);
    AddClosed(app, options);
}

void DescribeExport(CLI::App& app, Options& options) {
    app.add_option("--format", options.format, "What to write")
        ->required()
        ->check(CLI::IsMember({"text", "markdown", "html", "json", "ics"}));
    app.add_option("-o,--output", options.output, "A file, or a folder that gets a file for each note")
        ->type_name("FILE|FOLDER");
    AddClosed(app, options);
}

void AddStart(CLI::App& app, Options& options) {
    app.add_flag("--start", options.start, "Start Quillo when it does not run");
}

void DescribeNew(CLI::App& app, Options& options) {
    app.add_option("TEXT", options.words, "The text; - reads the standard input")->type_name("")->expected(0, 100000);
    app.add_option("--remind", options.remind, "When: \"in 20 minutes\", 15:30, tomorrow, a date")->type_name("PHRASE");
    app.add_option("--color", options.color, "One of the eleven color schemes, such as yellow or black-and-blue")
        ->type_name("NAME");
    app.add_flag("--hidden", options.hidden, "Do not show the note");
    AddStart(app, options);
}

void DescribeImport(CLI::App& app, Options& options) {
    app.add_option("FILES", options.words, "Text and Markdown files, and the JSON of an export; they stay")
        ->required()
        ->expected(1, 1000);
    AddStart(app, options);
}

void DescribeBackup(CLI::App& app, Options& options) {
    app.add_option("FOLDER", options.folder, "Where the dated copy is to be made")->required();
}

void DescribeRestore(CLI::App& app, Options& options) {
    app.add_option("FOLDER", options.folder, "A dated copy that backup has made")->required();
    app.add_flag("--older", options.older, "Bring a note that has changed since as a second note");
    AddStart(app, options);
}

void DescribeDoctor(CLI::App& app, Options& options) {
    app.add_flag("--repair", options.repair,
                 "Mend what can be mended; a copy of each file is kept. Not while Quillo runs");
}

void DescribeOpen(CLI::App& app, Options& options) {
    app.add_option("FILE", options.words, "A note's file or any text file; it moves into the notes folder")
        ->required()
        ->expected(1);
}

void DescribeQuit(CLI::App& /*app*/, Options& /*options*/) {}

}  // namespace

const std::vector<CommandRow>& Commands() {
    static const std::vector<CommandRow> rows = {
        {"list", "List the notes: number, id, first words, state, reminder, color, file", DescribeList},
        {"show", "Print the text of a note", DescribeShow},
        {"find", "Find notes by words", DescribeFind},
        {"path", "Print the path of a note's file, or of the notes folder", DescribePath},
        {"export", "Write all notes as text, Markdown, a page, JSON, or their reminders as a calendar", DescribeExport},
        {"new", "Make a note", DescribeNew},
        {"import", "Make notes of files", DescribeImport},
        {"backup", "Copy the notes folder and the settings into a dated folder", DescribeBackup},
        {"restore", "Bring back the notes of a backup that are not there", DescribeRestore},
        {"doctor", "Say what is wrong in the notes folder", DescribeDoctor},
        {"open", "Open a file as a note in the running Quillo", DescribeOpen},
        {"quit", "End the running Quillo", DescribeQuit},
    };
    return rows;
}

std::unique_ptr<CLI::App> BuildModel(Options& options) {
    auto app = std::make_unique<CLI::App>(kAbout, "qln");
    app->allow_windows_style_options(false);
    app->fallthrough();
    app->require_subcommand(1);
    app->set_version_flag("--version", "qln " QUILLO_VERSION_TEXT);
    app->add_option("--folder", options.where.folder, "The folder of the notes")->type_name("FOLDER");
    app->add_option("--codepage", options.where.codePage,
                    "The code page of the notes, on Linux (default: the system's)")
        ->type_name("NUMBER")
        ->check(CLI::Range(1, 65535).description(""));
    app->footer(kExitCodes);
    for (const CommandRow& row : Commands()) {
        CLI::App* command = app->add_subcommand(row.name, row.summary);
        row.describe(*command, options);
    }
    return app;
}

}  // namespace quillo::qln
