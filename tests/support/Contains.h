// SPDX-License-Identifier: MIT
// Looking for a part of a text.
#pragma once

#include <string_view>

namespace Tarnex::Test {

inline bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

} // namespace Tarnex::Test
