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
///
/// The places that count are, for containers, furniture and tapestries, the walls of a level and,
/// but for caves, its corners; for rugs the centres; for creatures centres, halls and walls; for
/// treasure the containers of the level. Doorways and dead ends hold nothing.
struct VAULTRY_API ThemeItem : public DiRcObject {
    /// The value of minimum and maximum when the configuration gives none.
    static constexpr std::int32_t kNotGiven = -1;

    std::string type; ///< kind or treasure subtype of the content
    /// The content to choose from, of several by chance at each placement; empty: any of its type.
    /// A name that the type lacks is logged, and the item places no more.
    std::vector<std::string> uniqueNames;
    /// Placements per place that counts, cut to a whole number. Where `maximum` is not given there
    /// may be one more, if there is a place for it. A number below 0 places nothing.
    float ratio = 1.0F;
    /// Of each placement beyond the minimum [0, 1]. From 1 on the share of `ratio` is certain,
    /// unless `minimum` says otherwise; 0 still lets one in 32768 through. Below 0 is never.
    float chance = 1.0F;
    /// Placements made without the chance test, as long as there are places. Negative ones are
    /// none.
    std::int32_t minimum = kNotGiven;
    /// Upper bound of placements; 0 and, but for kNotGiven, less: nothing is placed, whatever the
    /// minimum.
    std::int32_t maximum = kNotGiven;
};

} // namespace Tarnex
