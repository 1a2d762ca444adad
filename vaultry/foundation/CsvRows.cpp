// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CsvRows.h>

namespace Tarnex {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";

CsvRow RowOf(std::string_view text, std::size_t line) {
    CsvRow row{line, std::vector<std::string>(1), true};
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == ',' && row.closed) {
            row.cells.emplace_back();
        } else if (c != '"') {
            row.cells.back() += c;
        } else if (!row.closed && text.substr(at + 1).starts_with('"')) {
            row.cells.back() += text[++at];
        } else {
            row.closed = !row.closed;
        }
    }
    return row;
}

} // namespace

std::vector<CsvRow> CsvRows(std::string_view table) {
    std::vector<CsvRow> rows;
    table.remove_prefix(table.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0);
    for (std::size_t line = 1; !table.empty(); ++line) {
        const std::size_t end = table.find('\n');
        std::string_view text = table.substr(0, end);
        table.remove_prefix(end == std::string_view::npos ? table.size() : end + 1);
        text.remove_suffix(text.ends_with('\r') ? 1 : 0);
        if (text.find_first_not_of(kBlanks) != std::string_view::npos) {
            rows.push_back(RowOf(text, line));
        }
    }
    return rows;
}

} // namespace Tarnex
