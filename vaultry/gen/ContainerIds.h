// SPDX-License-Identifier: MIT
// The identifiers of generated containers.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <string>

namespace Tarnex {

/// Fixes the number that container identifiers carry, which is otherwise the current time in whole
/// seconds, and restarts their counter at 1: with the same seed and stamp a run repeats itself to
/// the byte.
VAULTRY_API void SetContainerStamp(std::int64_t seconds);

/// The next identifier: "Ctr", the stamp, "_", a counter that grows with every container of the
/// process.
VAULTRY_API std::string NextContainerId();

} // namespace Tarnex
