// SPDX-License-Identifier: MIT
// What a configuration has to choose from.
#pragma once

#include "tools/runs/Presets.h"

#include <vaultry/gen/GenMgr.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// Something to choose by name.
struct OfferedName {
    std::string name;       ///< UTF-8
    bool isDefault = false; ///< taken when nothing is named
    std::optional<std::int32_t>
        level;                 ///< of a theme: random choices take levels of 1 and more only
    std::optional<DiPos> size; ///< of a layout [cells]
};

/// What one option of a run takes.
struct OfferedList {
    const char* option; ///< its switch, without the hyphens
    const char* title;  ///< what it chooses, for people
    std::vector<OfferedName> names;
};

/// Everything a configuration offers. All text is UTF-8.
struct Offer {
    std::string config;          ///< where it is from, as it was named
    std::vector<Preset> presets; ///< which bring configurations of their own
    std::vector<OfferedList> lists;
    std::vector<std::string> errors; ///< met while it was read
};

/// The lists of what the manager's configuration offers, in the order of the options.
std::vector<OfferedList> OfferedLists(GenMgr& manager);

std::string ToJson(const Offer& offer);

} // namespace Tarnex::Report
