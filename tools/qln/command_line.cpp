#include "command_line.h"

#include <algorithm>
#include <sstream>

#include "command_model.h"
#include "commands.h"
#include "generated_help.h"
#include "options.h"
#include "util/unicode.h"
#include "words.h"

namespace quillo::qln {
namespace {

/// The exit code of a command line that requires no action: help and version are not errors.
int Explain(const CLI::App& app, const CLI::ParseError& problem, Console& console) {
    std::ostringstream out;
    std::ostringstream error;
    const int code = app.exit(problem, out, error);
    console.Out(out.str());
    console.Error(error.str());
    return code == 0 ? kDone : kWrongUse;
}

/// Options for the build and the installer, which the help omits. Nothing for any other command line.
std::optional<int> RunInternal(const std::vector<std::string>& arguments, const CLI::App& app, Host& host) {
#ifndef QLN_WRITES_NO_HELP
    if (arguments.size() == 2 && arguments[0] == "--internal-generate") {
        const std::string text = GeneratedHelp(app, arguments[1]);
        host.Terminal().Out(text);
        return text.empty() ? kWrongUse : kDone;
    }
#else
    static_cast<void>(app);
#endif
    // --internal-path add|remove user|machine [FOLDER]: without a folder, the program's own
    if ((arguments.size() == 3 || arguments.size() == 4) && arguments[0] == "--internal-path") {
        const bool add = arguments[1] == "add";
        const bool machine = arguments[2] == "machine";
        if ((!add && arguments[1] != "remove") || (!machine && arguments[2] != "user")) return kWrongUse;
        return host.EditPath(add, machine, arguments.size() == 4 ? arguments[3] : "") ? kDone : kFailed;
    }
    return std::nullopt;
}

struct Runner {
    const char* name;
    int (*run)(const Session& session);
};

constexpr Runner kRunners[] = {
    {"list", List},       {"show", Show},     {"find", FindWords}, {"path", Path},
    {"export", Export},   {"new", New},       {"import", Import},  {"backup", Backup},
    {"restore", Restore}, {"doctor", Doctor}, {"open", OpenFile},  {"quit", Quit},
};

/// The function that carries out the chosen command.
const Runner* ChosenRunner(const CLI::App& app) {
    for (const Runner& runner : kRunners) {
        if (app.got_subcommand(runner.name)) return &runner;
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
    if (const auto code = RunInternal(arguments, *app, host)) return *code;
    try {
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
        app->parse(std::move(reversed));
    } catch (const CLI::ParseError& problem) {
        return Explain(*app, problem, console);
    }
    const Runner* runner = ChosenRunner(*app);
    if (runner == nullptr) return kWrongUse;
    std::string error;
    std::optional<Surroundings> place = host.Find(options.where, error);
    if (!place) {
        Complain(console, error);
        return kFailed;
    }
    return runner->run(Session{options, host, *place});
}

}  // namespace quillo::qln
