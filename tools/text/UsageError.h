// SPDX-License-Identifier: MIT
// What ends a run because of what it was given.
#pragma once

#include <stdexcept>

namespace Tarnex {

/// A mistake in the arguments or in the files they name, in one line. The command line shows it and
/// ends with ExitStatus::Usage.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace Tarnex
