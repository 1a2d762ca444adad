// SPDX-License-Identifier: MIT
// What keeps somebody from opening a door or a container.
#pragma once

#include <vaultry/foundation/DiRcObject.h>

#include <cstdint>
#include <optional>
#include <string>

namespace Tarnex {

/// The levels of locks: how hard it is to pick one.
/// @{
inline constexpr std::int32_t kLeastLock = 1;
inline constexpr std::int32_t kMostLock = 100;
/// @}

/// The lock and the trap of one reference. Texts are Windows-1252.
class VAULTRY_API RefLock : public DiRcObject {
public:
    /// From kLeastLock to kMostLock; 0 says that the thing is not locked, nothing leaves it unsaid.
    std::optional<std::int32_t> level;
    /// The item that opens it besides a lockpick; empty: none. Without a level above 0 the game
    /// takes it for the only way to open the thing, and forgets the trap.
    std::string key;
    /// The spell that strikes whoever opens the thing; empty: none. Nobody looks for it in the
    /// game's files before.
    std::string trap;
};

} // namespace Tarnex
