// SPDX-License-Identifier: MIT
// What a configuration has to choose from.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// Something to choose by name.
struct OfferedName {
    std::string name;       ///< UTF-8
    std::int32_t level = 0; ///< of a theme: random choices take levels of 1 and more only
    bool isDefault = false; ///< taken when nothing is named
};

/// What one switch of the verb generate takes.
struct OfferedList {
    const char* option; ///< the switch, without its hyphens
    const char* title;  ///< what it chooses, for people
    bool levelled;      ///< whether the levels mean anything
    std::vector<OfferedName> names;
};

/// Everything a configuration offers. All text is UTF-8.
struct Offer {
    std::string config;
    std::vector<OfferedList> lists;
    std::vector<std::string> errors;
};

} // namespace Tarnex::Cli
