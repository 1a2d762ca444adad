// SPDX-License-Identifier: MIT
// Tables whose cells stand between commas.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex {

/// One line of a table.
struct CsvRow {
    std::size_t line = 0; ///< its number in the text, from 1
    std::vector<std::string> cells;
    bool closed = true; ///< no quotation mark is left open at the end of the line
};

/// The rows of a table, that with the names of the columns among them; lines without a letter are
/// left out. A cell in quotation marks may hold commas, and a quotation mark as two, but no end of
/// a line. A mark of UTF-8 at the beginning and line ends of Windows are taken for what they are.
VAULTRY_API std::vector<CsvRow> CsvRows(std::string_view table);

} // namespace Tarnex
