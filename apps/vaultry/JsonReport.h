// SPDX-License-Identifier: MIT
// Reports for programs: one JSON object, valid UTF-8 whatever the names hold.
#pragma once

#include "apps/vaultry/Offer.h"
#include "apps/vaultry/RunReport.h"

#include <string>

namespace Tarnex::Cli {

/// The number under "schema"; it grows when a key changes its meaning or goes.
inline constexpr int kJsonSchema = 1;

std::string ToJson(const RunReport& report);
std::string ToJson(const Offer& offer);

} // namespace Tarnex::Cli
