// SPDX-License-Identifier: MIT
// One dungeon after another from the same configuration.
#pragma once

#include "cli/Options.h"

#include <vaultry/gen/GenMgr.h>

#include <cstdint>
#include <string>

namespace Tarnex::Cli {

/// Generates from seeds, each time from the state in which the manager was at first, so that every
/// seed makes the dungeon that it makes by itself.
class SeedRun {
public:
    /// `manager` is configured, not owned; the options' stamp is set.
    SeedRun(GenMgr& manager, const GenerateOptions& options);

    ModResult Generate(std::uint32_t seed);

private:
    GenMgr& manager;
    std::string cell;
    bool fixed;
    std::int64_t stamp;
};

} // namespace Tarnex::Cli
