// SPDX-License-Identifier: MIT
#include "cli/CommandHelp.h"
#include "cli/Commands.h"

#include <sstream>

namespace Tarnex::Cli {

namespace {

// The formatter indents its lines.
constexpr std::size_t kWidth = kHelpWidth - 7;

// The formatter would take a leading point or quote for a request and a plain hyphen for a dash.
std::string Escaped(const std::string& line) {
    std::string escaped;
    if (!line.empty() && (line.front() == '.' || line.front() == '\'')) {
        escaped = "\\&";
    }
    for (const char c : line) {
        if (c == '\\') {
            escaped += "\\e";
        } else if (c == '-') {
            escaped += "\\-";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

// Lines that stay as they are.
void WriteLines(std::ostream& page, const std::string& text) {
    page << ".nf\n";
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        page << Escaped(line) << '\n';
    }
    page << ".fi\n";
}

std::string Name(const OptionHelp& option) {
    std::string name;
    for (const std::string& spelling : option.names) {
        name += (name.empty() ? "\\fB" : ", \\fB") + Escaped(spelling) + "\\fR";
    }
    if (!option.value.empty()) {
        name += (name.empty() ? "\\fI" : " \\fI") + Escaped(option.value) + "\\fR";
    }
    return name;
}

void WriteVerb(std::ostream& page, const VerbHelp& verb) {
    page << ".SS vaultry " << verb.name << '\n' << Escaped(verb.text) << ".\n";
    for (const OptionHelp& option : verb.options) {
        page << ".TP\n" << Name(option) << '\n' << Escaped(option.text) << '\n';
    }
    page << ".PP\n";
    WriteLines(page, WrappedLines(verb.footer, kWidth));
}

} // namespace

std::string ManualPage(const CommandHelp& help) {
    std::ostringstream page;
    page << ".TH VAULTRY 1 \"\" \"vaultry " VAULTRY_VERSION "\" \"User Commands\"\n"
         << ".SH NAME\nvaultry \\- dungeon interiors as plug\\-ins for the game\n"
         << ".SH SYNOPSIS\n.B vaultry\n.I VERB\n[\\fIOPTION\\fR...]\n"
         << ".SH DESCRIPTION\n";
    page << Escaped(help.text) << "\n.PP\n";
    WriteLines(page, WrappedLines(help.footer, kWidth));
    page << ".SH VERBS\n";
    for (const VerbHelp& verb : help.verbs) {
        WriteVerb(page, verb);
    }
    return page.str();
}

ExitStatus RunVerb(const ManualOptions& /*options*/, const Console& console) {
    console.out << ManualPage(DescribeCommandLine());
    return ExitStatus::Success;
}

} // namespace Tarnex::Cli
