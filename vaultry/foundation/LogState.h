// SPDX-License-Identifier: MIT
// What a log consists of. Not installed.
#pragma once

#include <vaultry/foundation/SystemFile.h>

#include <string>
#include <system_error>
#include <vector>

namespace Tarnex {

/// The log of a RunState; see Logger.
struct LogState {
    bool opened = false;             ///< no line opens a file any more
    SystemFile file;                 ///< not open when there is no file
    std::error_code fault;           ///< why the file lacks lines
    std::vector<std::string> errors; ///< in the order logged
};

} // namespace Tarnex
