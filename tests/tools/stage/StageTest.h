// SPDX-License-Identifier: MIT
// Stages of configurations.
#pragma once

#include "tools/stage/StageFiles.h"
#include "tools/stage/StagePlan.h"

#include <vaultry/run/BuiltinConfigs.h>

#include <string>

namespace Tarnex::Test {

inline Report::StageSource SourceOf(const std::string& name, std::string_view text) {
    return {name, RecordConfigText(text, name.c_str())};
}

/// Of the elements of one configuration.
inline Report::StagePlan PlanOf(const std::string& elements) {
    return Report::PlanStage({SourceOf("own", "<OstrelData>" + elements + "</OstrelData>")});
}

inline Report::StagePlan BuiltinPlan() {
    std::vector<Report::StageSource> sources;
    for (const BuiltinConfig& config : BuiltinConfigs()) {
        sources.push_back(SourceOf(std::string(config.name), config.text));
    }
    return Report::PlanStage(sources);
}

} // namespace Tarnex::Test
