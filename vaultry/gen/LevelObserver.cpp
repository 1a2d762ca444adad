// SPDX-License-Identifier: MIT
#include <vaultry/gen/LevelObserver.h>

namespace Tarnex {

LevelObserver::~LevelObserver() = default;

} // namespace Tarnex
