#include "generated_help.h"

#include <functional>
#include <sstream>
#include <vector>

#include "version.h"

namespace quillo::qln {
namespace {

std::vector<const CLI::App*> CommandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App* command) { return !command->get_name().empty(); });
}

std::vector<const CLI::Option*> OptionsOf(const CLI::App& app, bool positional) {
    return app.get_options([positional](const CLI::Option* option) { return option->get_positional() == positional; });
}

/// "-o,--output FILE|FOLDER"
std::string OptionText(const CLI::Option& option) {
    std::string text = option.get_name(false, true);
    if (option.get_type_size() == 0) return text;
    const std::string type = option.get_type_name();
    return type.empty() ? text : text + " " + type;
}

/// The values that an option accepts, such as the formats of an export.
std::vector<std::string> ChoicesOf(const CLI::Option& option) {
    std::vector<std::string> choices;
    const std::string type = option.get_type_name();
    const std::size_t open = type.find('{');
    if (open == std::string::npos) return choices;
    std::istringstream list(type.substr(open + 1, type.find('}') - open - 1));
    for (std::string choice; std::getline(list, choice, ',');) choices.push_back(choice);
    return choices;
}

/// "qln show [options] WHICH..."
std::string UsageOf(const CLI::App& command) {
    std::string usage = "qln " + command.get_name() + " [options]";
    for (const CLI::Option* option : OptionsOf(command, true)) {
        std::string name = option->get_name(true);
        if (option->get_items_expected_max() > 1) name += "...";
        usage += option->get_required() ? " " + name : " [" + name + "]";
    }
    return usage;
}

std::string Replaced(std::string_view text, const std::vector<std::pair<char, std::string_view>>& signs) {
    std::string result;
    for (const char c : text) {
        std::string_view sign;
        for (const auto& [plain, replacement] : signs) {
            if (plain == c) sign = replacement;
        }
        if (sign.empty()) {
            result += c;
        } else {
            result += sign;
        }
    }
    return result;
}

std::string Roff(std::string_view text) {
    return Replaced(text, {{'\\', "\\e"}, {'-', "\\-"}, {'\'', "\\(aq"}, {'\n', "\n.br\n"}});
}

std::string Html(std::string_view text) {
    return Replaced(text, {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'\n', "<br>\n"}});
}

std::string RoffOptions(const CLI::App& app) {
    std::string text;
    for (const bool positional : {true, false}) {
        for (const CLI::Option* option : OptionsOf(app, positional)) {
            const std::string name = positional ? option->get_name(true) : OptionText(*option);
            text += ".TP\n.B " + Roff(name) + "\n" + Roff(option->get_description()) + "\n";
        }
    }
    return text;
}

std::string ManPage(const CLI::App& app) {
    std::string page = ".TH QLN 1 \"\" \"Quillo " QUILLO_VERSION_TEXT
                       "\"\n.SH NAME\nqln \\- Quillo's notes in a console\n"
                       ".SH SYNOPSIS\n.B qln\n[options] COMMAND [...]\n.SH DESCRIPTION\n" +
                       Roff(app.get_description()) + "\n.SH OPTIONS\n" + RoffOptions(app) + ".SH COMMANDS\n";
    for (const CLI::App* command : CommandsOf(app)) {
        page +=
            ".SS " + Roff(UsageOf(*command)) + "\n" + Roff(command->get_description()) + ".\n" + RoffOptions(*command);
    }
    return page + ".SH NOTES\n" + Roff(app.get_footer()) + "\n";
}

std::string HtmlOptions(const CLI::App& app) {
    std::string rows;
    for (const bool positional : {true, false}) {
        for (const CLI::Option* option : OptionsOf(app, positional)) {
            const std::string name = positional ? option->get_name(true) : OptionText(*option);
            rows += "<tr><td><b>" + Html(name) + "</b></td><td>" + Html(option->get_description()) + "</td></tr>\n";
        }
    }
    return rows.empty() ? "" : "<table summary=\"Options\">\n" + rows + "</table>\n";
}

std::string HelpPage(const CLI::App& app) {
    std::string page =
        "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01//EN\" \"http://www.w3.org/TR/html4/strict.dtd\">\n<html "
        "lang=\"en\">\n<head>\n<meta http-equiv=\"Content-Type\" "
        "content=\"text/html; charset=windows-1252\">\n<title>Notes in a console</title>\n<link rel=\"stylesheet\" "
        "type=\"text/css\" href=\"style.css\">\n</head>\n<body>\n<div class=\"page\">\n<h1>Notes in a "
        "console</h1>\n<p>" +
        Html(app.get_description()) +
        "</p>\n<p>The program is <b>qln.exe</b>. Every command answers to <b>--help</b>.</p>\n" + HtmlOptions(app);
    for (const CLI::App* command : CommandsOf(app)) {
        page += "<h2>" + Html(UsageOf(*command)) + "</h2>\n<p>" + Html(command->get_description()) + ".</p>\n" +
                HtmlOptions(*command);
    }
    return page + "<p>" + Html(app.get_footer()) + "</p>\n</div>\n</body>\n</html>\n";
}

std::string Joined(const std::vector<std::string>& words, std::string_view between) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : std::string(between)) + word;
    return text;
}

std::vector<std::string> LongNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::Option* option : OptionsOf(app, false)) {
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    }
    return names;
}

std::vector<std::string> CommandNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : CommandsOf(app)) names.push_back(command->get_name());
    return names;
}

/// Calls `use` for each option that accepts one of several words, once for each of its names.
void ForEachChoice(const CLI::App& app,
                   const std::function<void(const std::string&, const std::vector<std::string>&)>& use) {
    for (const CLI::App* command : CommandsOf(app)) {
        for (const CLI::Option* option : OptionsOf(*command, false)) {
            const std::vector<std::string> choices = ChoicesOf(*option);
            if (choices.empty()) continue;
            for (const std::string& name : option->get_lnames()) use("--" + name, choices);
        }
    }
}

std::string BashCompletion(const CLI::App& app) {
    std::string script =
        "# Completion of qln for bash.\n_qln() {\n    local word=${COMP_WORDS[COMP_CWORD]} "
        "before=${COMP_WORDS[COMP_CWORD - 1]} command='' part\n"
        "    for part in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n        case $part in\n            " +
        Joined(CommandNames(app), " | ") +
        ") command=$part; break ;;\n        esac\n    done\n"
        "    case $before in\n";
    ForEachChoice(app, [&script](const std::string& name, const std::vector<std::string>& choices) {
        script += "        " + name + ") mapfile -t COMPREPLY < <(compgen -W '" + Joined(choices, " ") +
                  "' -- \"$word\"); return ;;\n";
    });
    script += "    esac\n    case $command in\n        '') mapfile -t COMPREPLY < <(compgen -W '" +
              Joined(CommandNames(app), " ") + " " + Joined(LongNames(app), " ") + "' -- \"$word\") ;;\n";
    for (const CLI::App* command : CommandsOf(app)) {
        script += "        " + command->get_name() + ") mapfile -t COMPREPLY < <(compgen -f -W '" +
                  Joined(LongNames(*command), " ") + "' -- \"$word\") ;;\n";
    }
    return script + "    esac\n}\ncomplete -F _qln qln\n";
}

std::string Quoted(const std::vector<std::string>& words) {
    return "'" + Joined(words, "', '") + "'";
}

std::string PowerShellCompletion(const CLI::App& app) {
    std::string script =
        "# Completion of qln for PowerShell.\nRegister-ArgumentCompleter -Native -CommandName qln, qln.exe "
        "-ScriptBlock {\n    param($word, $line, $position)\n    $commands = @{\n";
    for (const CLI::App* command : CommandsOf(app)) {
        script += "        '" + command->get_name() + "' = @(" + Quoted(LongNames(*command)) + ")\n";
    }
    script += "    }\n    $choices = @{\n";
    ForEachChoice(app, [&script](const std::string& name, const std::vector<std::string>& choices) {
        script += "        '" + name + "' = @(" + Quoted(choices) + ")\n";
    });
    return script +
           "    }\n    $words = @($line.CommandElements | ForEach-Object { $_.ToString() })\n"
           "    $before = if ($word) { $words[-2] } else { $words[-1] }\n"
           "    $command = $words | Select-Object -Skip 1 | Where-Object { $commands.ContainsKey($_) } | "
           "Select-Object -First 1\n"
           "    $found = if ($before -and $choices.ContainsKey($before)) { $choices[$before] }\n"
           "        elseif ($command -and $command -ne $word) { $commands[$command] }\n"
           "        else { @(" +
           Quoted(CommandNames(app)) + ", " + Quoted(LongNames(app)) +
           ") }\n"
           "    $found | Where-Object { $_ -like \"$word*\" } | Sort-Object | ForEach-Object {\n"
           "        [System.Management.Automation.CompletionResult]::new($_, $_, 'ParameterValue', $_)\n    }\n}\n";
}

}  // namespace

std::string GeneratedHelp(const CLI::App& app, std::string_view kind) {
    if (kind == "man") return ManPage(app);
    if (kind == "help") return HelpPage(app);
    if (kind == "bash") return BashCompletion(app);
    if (kind == "powershell") return PowerShellCompletion(app);
    return {};
}

}  // namespace quillo::qln
