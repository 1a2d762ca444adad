// SPDX-License-Identifier: MIT
// What somebody wrote, as messages repeat it.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace Tarnex::Report {

/// As much of a text is repeated. [bytes]
inline constexpr std::size_t kLongestQuote = 40;

/// The text in quotation marks, cut between two characters where it is long.
inline std::string Quote(std::string_view utf8) {
    std::size_t cut = std::min(utf8.size(), kLongestQuote);
    while (cut > 0 && cut < utf8.size() &&
           (static_cast<unsigned char>(utf8[cut]) & 0xC0U) == 0x80) {
        --cut;
    }
    return '"' + std::string(utf8.substr(0, cut)) + (cut < utf8.size() ? "...\"" : "\"");
}

} // namespace Tarnex::Report
