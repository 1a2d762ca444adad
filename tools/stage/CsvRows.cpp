// SPDX-License-Identifier: MIT
#include "tools/stage/CsvRows.h"

namespace Tarnex::Report {

namespace {

std::vector<std::string> CellsOf(std::string_view line) {
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (const char c : line) {
        if (c == '"') {
            quoted = !quoted;
        } else if (c == ',' && !quoted) {
            cells.emplace_back();
        } else {
            cells.back() += c;
        }
    }
    return cells;
}

} // namespace

std::vector<std::vector<std::string>> CsvRows(std::string_view table) {
    std::vector<std::vector<std::string>> rows;
    while (!table.empty()) {
        const std::size_t end = table.find('\n');
        rows.push_back(CellsOf(table.substr(0, end)));
        table.remove_prefix(end == std::string_view::npos ? table.size() : end + 1);
    }
    rows.erase(rows.begin());
    return rows;
}

} // namespace Tarnex::Report
