#include "command_line.h"

#include <algorithm>
#include <sstream>

#include "command_model.h"
#include "options.h"
#include "util/unicode.h"
#include "words.h"

namespace quillo::qln {
namespace {

/// The exit code of a command line that was not to be carried out: help and version are no mistake.
int Explain(const CLI::App& app, const CLI::ParseError& problem, Console& console) {
    std::ostringstream out;
    std::ostringstream error;
    const int code = app.exit(problem, out, error);
    console.Out(out.str());
    console.Error(error.str());
    return code == 0 ? kDone : kWrongUse;
}

const CommandRow* ChosenCommand(const CLI::App& app) {
    for (const CommandRow& row : Commands()) {
        if (app.got_subcommand(row.name)) return &row;
    }
    return nullptr;
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, Host& host) {
    Console& console = host.Terminal();
    for (const std::string& argument : arguments) {
        if (DecodeUtf8(argument, LoneSurrogates::Accept)) continue;
        Complain(console, "an argument is not well-formed UTF-8: " + HarmlessName(argument));
        return kWrongUse;
    }
    Options options;
    const std::unique_ptr<CLI::App> app = BuildModel(options);
    try {
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
        app->parse(std::move(reversed));
    } catch (const CLI::ParseError& problem) {
        return Explain(*app, problem, console);
    }
    const CommandRow* command = ChosenCommand(*app);
    if (command == nullptr) return kWrongUse;
    std::string error;
    std::optional<Surroundings> place = host.Find(options.where, error);
    if (!place) {
        Complain(console, error);
        return kFailed;
    }
    return command->run(Session{options, host, *place});
}

}  // namespace quillo::qln
