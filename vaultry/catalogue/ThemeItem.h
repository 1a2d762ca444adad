// SPDX-License-Identifier: MIT
// One line of a theme: what to place and how much of it.
#pragma once

#include <vaultry/foundation/DiRcObject.h>
#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Tarnex {

/// What kind of content to place, how often, and optionally which.
struct VAULTRY_API ThemeItem : public DiRcObject {
    /// The value of minimum and maximum when the configuration gives none.
    static constexpr std::int32_t kNotGiven = -1;

    std::string type;                     ///< kind or treasure subtype of the content
    std::vector<std::string> uniqueNames; ///< the content to choose from; empty: any of its type
    float ratio = 1.0F;                   ///< placements per candidate element or container
    float chance = 1.0F;                  ///< of each placement beyond the minimum [0, 1]
    std::int32_t minimum = kNotGiven;     ///< placements made without the chance test
    std::int32_t maximum = kNotGiven;     ///< upper bound of placements
};

} // namespace Tarnex
