// SPDX-License-Identifier: MIT
// What a run came to, for other programs.
#pragma once

#include <vaultry/gen/GenReport.h>

#include <string>

namespace Tarnex {

/// The levels of a run as a JSON array, valid UTF-8 whatever their names hold.
VAULTRY_API std::string LevelsToJson(const GenReport& report);

} // namespace Tarnex
