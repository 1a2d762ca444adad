// SPDX-License-Identifier: MIT
// Text that arrives in pieces.
#pragma once

#include <string>
#include <vector>

namespace Tarnex::Search {

/// Takes the lines that are complete out of `text`, without their line feeds.
inline std::vector<std::string> TakeLines(std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end = 0; (end = text.find('\n', start)) != std::string::npos;) {
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    text.erase(0, start);
    return lines;
}

} // namespace Tarnex::Search
