// SPDX-License-Identifier: MIT
// The files of a stage, before any is written.
#pragma once

#include "tools/stage/StagePlan.h"

#include <array>
#include <map>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// A stage whole. The same plan gives the same bytes on every machine.
struct StageFiles {
    std::string master;                       ///< bytes of the file of records
    std::map<std::string, std::string> files; ///< all others: bytes by path [UTF-8, with slashes]
    std::size_t objects = 0;                  ///< records of stand-ins
    std::array<std::size_t, 4> known{}; ///< of them, those with a shape, in the order of Known
    std::vector<std::string> remarks;   ///< what does not fit [UTF-8]
};

StageFiles FilesOf(const StagePlan& plan);

} // namespace Tarnex::Report
