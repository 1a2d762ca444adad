// SPDX-License-Identifier: MIT
// What is wrong with the game's files.
#pragma once

#include <stdexcept>

namespace Tarnex {

/// The game's files do not give what was asked of them; says why in one line of UTF-8.
class GameFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace Tarnex
