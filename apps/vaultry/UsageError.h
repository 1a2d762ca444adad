// SPDX-License-Identifier: MIT
// What ends a run because of its arguments.
#pragma once

#include <stdexcept>

namespace Tarnex::Cli {

/// A mistake in the arguments or in the files they name; its one line is shown and the exit status
/// is ExitStatus::Usage.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace Tarnex::Cli
