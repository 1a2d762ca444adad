// SPDX-License-Identifier: MIT
// Locks and traps as people read them.
#pragma once

#include <vaultry/output/PluginFile.h>
#include <vaultry/output/Ref.h>

#include <optional>
#include <string>

namespace Tarnex::Report {

/// Whether the game keeps the thing shut: by a level, or by a key that it takes for the only way.
bool IsLocked(const PluginLock& lock);

/// Whether nothing but the key opens it: one without a level above 0.
bool IsForKeyAlone(const PluginLock& lock);

/// The lock of a reference that was made, as it is read from its plug-in.
std::optional<PluginLock> LockOf(const Ref& ref);

/// "locked at 35, key "Key1_2", trap "shock"", with what there is of it; "not locked" where no more
/// is said, and empty where nothing is. All text is UTF-8.
std::string LockWords(const std::optional<PluginLock>& lock);

} // namespace Tarnex::Report
