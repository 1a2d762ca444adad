// SPDX-License-Identifier: MIT
// The identifiers of generated containers.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <limits>
#include <string>

namespace Tarnex {

/// The greatest stamp that front ends take; the least is 0.
inline constexpr std::int64_t kMaxStamp = std::numeric_limits<std::int64_t>::max();

/// Fixes the number that container identifiers carry, which is otherwise the current time in whole
/// seconds, and restarts their counter at 1: with the same seed and stamp a run repeats itself to
/// the byte. Plug-ins that two processes make in the same second have the same identifiers unless
/// each sets a stamp of its own, drawn by chance for instance.
VAULTRY_API void SetContainerStamp(std::int64_t seconds);

/// The next identifier: "Ctr", the stamp, "_", a counter that grows with every container. Stamp and
/// counter are those of the state in use (RunState.h). The game's fields for identifiers hold 31
/// bytes and a zero; the longest stamp leaves 8 digits for the counter.
VAULTRY_API std::string NextContainerId();

} // namespace Tarnex
