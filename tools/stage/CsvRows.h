// SPDX-License-Identifier: MIT
// The tables that are part of the program.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

/// The rows of data/pieces.csv and data/settings.csv as they are.
/// @{
std::string_view PieceTable();
std::string_view SettingTable();
/// @}

/// The cells of every line but the first, which names the columns. A cell in quotation marks may
/// hold commas.
std::vector<std::vector<std::string>> CsvRows(std::string_view table);

} // namespace Tarnex::Report
