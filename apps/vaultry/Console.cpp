// SPDX-License-Identifier: MIT
#include "apps/vaultry/Console.h"

#include <algorithm>

namespace Tarnex::Cli {

namespace {

bool IsControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

void PrintLine(std::ostream& stream, std::string_view start, std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(line, IsControl, ' ');
    stream << start << line << '\n';
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
