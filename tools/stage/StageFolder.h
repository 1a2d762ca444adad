// SPDX-License-Identifier: MIT
// Putting a stage into a folder, without harm to any other file.
#pragma once

#include "tools/stage/StageFiles.h"

#include <filesystem>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// Writes a stage into a folder (UTF-8), which is made where there is none; `master` is the name of
/// the file of records, as plug-ins ask for it. Throws UsageError, before anything is written, for
/// a name that is none, for a folder that holds anything and no stage, for one in which another
/// file has that name, and for one of `taken`, the folders of the game's data, unless it is a
/// stage. Throws FileError when a file cannot be written.
void WriteStage(const StageFiles& stage,
                const std::string& folder,
                const std::string& master,
                const std::vector<std::filesystem::path>& taken);

/// The folders of data that OpenMW's own configuration of this user names.
std::vector<std::filesystem::path> GameFolders();

} // namespace Tarnex::Report
