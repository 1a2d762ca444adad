// SPDX-License-Identifier: MIT
// What stands on a stage: a stand-in for everything that configurations name.
#pragma once

#include "tools/stage/Pieces.h"
#include "tools/stage/Shape.h"

#include <vaultry/catalogue/ConfigRecord.h>

#include <map>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// Of which kind the record of a stand-in is.
enum class StandInSort {
    Static,
    Door,
    Light,
    Container,
    Creature,
    Creatures, ///< a list of which the player's level chooses
    Item,
    Items, ///< likewise
};

/// One stand-in. Text is Windows-1252.
struct StandIn {
    std::string id;
    StandInSort sort = StandInSort::Static;
    Shape shape;                 ///< none where it needs no mesh
    Known known = Known::Shaped; ///< where the shape comes from
    bool vague = false;          ///< nothing gives its size, so that any shape will do
    std::string name;            ///< that a player sees
    std::string model;           ///< path of the mesh; empty: one of its own
    float weight = 0.0F;         ///< or a capacity
    int value = 0;               ///< [gold pieces]
    std::string use;             ///< what it was shaped for, for messages
};

/// A configuration and what it is called in messages (UTF-8).
struct StageSource {
    std::string name;
    ConfigRecord record;
};

/// All stand-ins by identifier in capitals, and what does not fit.
struct StagePlan {
    std::map<std::string, StandIn> standIns;
    std::vector<std::string> remarks; ///< UTF-8, a line each
};

/// Goes through the configurations in order; the first that names an object decides its shape, and
/// where a later one needs another, the plan remarks on it.
StagePlan PlanStage(const std::vector<StageSource>& sources);

} // namespace Tarnex::Report
