// SPDX-License-Identifier: MIT
#include "tools/text/TextTable.h"

#include <algorithm>

namespace Tarnex::Report {

namespace {

constexpr std::size_t kGap = 2;

std::size_t WidthOf(const std::string& utf8) {
    return static_cast<std::size_t>(std::ranges::count_if(
        utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

} // namespace

void TextTable::Print(std::ostream& out, std::size_t indent) const {
    std::vector<std::size_t> widths(alignments.size());
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], WidthOf(row[i]));
        }
    }
    for (const auto& row : rows) {
        std::string line(indent, ' ');
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string pad(widths[i] - WidthOf(row[i]), ' ');
            line.append(i == 0 ? 0 : kGap, ' ');
            line += alignments[i] == Align::Right ? pad + row[i] : row[i] + pad;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    }
}

} // namespace Tarnex::Report
