// SPDX-License-Identifier: MIT
#include "cli/SeedRun.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/run/KeptDefaults.h>

namespace Tarnex::Cli {

SeedRun::SeedRun(GenMgr& configured, const GenerateOptions& options)
    : manager(configured), cell(FromUtf8(options.cell)), fixed(options.fixed),
      stamp(options.stamp.value()) {}

ModResult SeedRun::Generate(std::uint32_t seed) {
    const KeptDefaults defaults(manager);
    SeedRandom(seed);
    SetContainerStamp(stamp);
    return manager.Generate(cell.c_str(), fixed);
}

} // namespace Tarnex::Cli
