// SPDX-License-Identifier: MIT
#include "cli/Console.h"

#include <vaultry/foundation/HarmlessText.h>

namespace Tarnex::Cli {

namespace {

void PrintLine(std::ostream& stream, std::string_view start, std::string_view text) {
    stream << start << ForTerminal(text) << '\n';
}

} // namespace

void Console::Say(std::string_view line) const {
    PrintLine(err, "vaultry: ", line);
}

void Console::Warn(std::string_view line) const {
    PrintLine(err, "vaultry: warning: ", line);
}

void Console::Show(const std::vector<std::string>& lines) const {
    for (const std::string& line : lines) {
        PrintLine(err, "", line);
    }
}

} // namespace Tarnex::Cli
