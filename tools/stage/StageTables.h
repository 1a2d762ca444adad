// SPDX-License-Identifier: MIT
// The tables of the stage, which are part of the program.
#pragma once

#include <string_view>

namespace Tarnex::Report {

/// data/pieces.csv and data/settings.csv as they are.
/// @{
std::string_view PieceTable();
std::string_view SettingTable();
/// @}

} // namespace Tarnex::Report
