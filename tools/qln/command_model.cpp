#include "command_model.h"

#include "commands.h"
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
    app.add_option("WHICH", options.words, "A number, an id, a file or words")->required(required)->expected(1, 1000);
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

}  // namespace

const std::vector<CommandRow>& Commands() {
    static const std::vector<CommandRow> rows = {
        {"list", "List the notes: number, id, first words, state, reminder, color, file", DescribeList, List},
        {"show", "Print the text of a note", DescribeShow, Show},
        {"find", "Find notes by words", DescribeFind, FindWords},
        {"path", "Print the path of a note's file, or of the notes folder", DescribePath, Path},
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
        ->check(CLI::Range(1, 65535));
    app->footer(kExitCodes);
    for (const CommandRow& row : Commands()) {
        CLI::App* command = app->add_subcommand(row.name, row.summary);
        row.describe(*command, options);
    }
    return app;
}

}  // namespace quillo::qln
