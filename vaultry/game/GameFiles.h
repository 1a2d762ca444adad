// SPDX-License-Identifier: MIT
// Which files the game consists of.
#pragma once

#include <vaultry/foundation/Export.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex {

/// The files that the game loads, in that order: those that OpenMW's configuration of this user
/// names or, with a folder (a path, UTF-8), those in there.
///
/// The folder is the game's, its "Data Files", or any other with an openmw.cfg. Which of its files
/// are loaded stands in that or in the game's Morrowind.ini: masters before plug-ins, each in the
/// order of the list. Without a list it is all masters, the older first, as the game has it, and by
/// name those of one time.
///
/// Throws GameFault, which says what may help, where no file is found. What a list names and what
/// is not there is left out: the game itself tells of that.
VAULTRY_API std::vector<std::filesystem::path>
FindGameFiles(const std::optional<std::string>& folder);

} // namespace Tarnex
