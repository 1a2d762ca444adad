// SPDX-License-Identifier: MIT
// The records of a stage, as the game's files hold them.
#pragma once

#include "tools/stage/StagePlan.h"

#include <string>
#include <string_view>

namespace Tarnex::Report {

/// The author that the header of a stage names, by which one is told from any other file.
inline constexpr std::string_view kStageAuthor = "vaultry stage";

/// Whether the bytes of a file begin as those of a stage.
bool IsStage(std::string_view bytes);

/// What the engine needs to start: settings, a player, skills, and land in the open with a region.
/// `count` grows by the number of records.
std::string WorldRecords(std::uint32_t& count);

/// The record of a stand-in; `model` is the path of its mesh, below "meshes", or empty.
std::string ObjectRecord(const StandIn& standIn, const std::string& model);

/// The whole file: its header and `records`, of which there are `count`.
std::string StageMaster(std::uint32_t count, const std::string& records);

} // namespace Tarnex::Report
