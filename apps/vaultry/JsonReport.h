// SPDX-License-Identifier: MIT
// Reports for programs: one JSON object, valid UTF-8 whatever the names hold.
#pragma once

#include "apps/vaultry/Offer.h"
#include "apps/vaultry/RunReport.h"

#include <string>

namespace Tarnex::Cli {

std::string ToJson(const RunReport& report);
std::string ToJson(const Offer& offer);

} // namespace Tarnex::Cli
