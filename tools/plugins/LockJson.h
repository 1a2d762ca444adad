// SPDX-License-Identifier: MIT
// Locks and traps as JSON.
#pragma once

#include "tools/text/Json.h"

#include <vaultry/output/PluginFile.h>

#include <optional>

namespace Tarnex::Report {

/// An object of level, key and trap, each null where nothing is said of it; null without a lock.
Json LockJson(const std::optional<PluginLock>& lock);

} // namespace Tarnex::Report
