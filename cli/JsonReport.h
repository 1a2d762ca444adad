// SPDX-License-Identifier: MIT
// Reports for programs: one JSON object, valid UTF-8 whatever the names hold.
#pragma once

#include "cli/RunReport.h"
#include "tools/maps/MapSurvey.h"

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// What `vaultry map` drew of a plug-in. All text is UTF-8.
struct PluginMapReport {
    std::string plugin; ///< as it was given
    std::string config; ///< that told what the references are
    std::vector<Report::SurveyedLevel> levels;
    std::vector<WrittenFile> files;
};

std::string ToJson(const RunReport& report);
std::string ToJson(const PluginMapReport& report);

} // namespace Tarnex::Cli
