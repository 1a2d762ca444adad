// SPDX-License-Identifier: MIT
// What the program tells the shell.
#pragma once

namespace Tarnex::Cli {

enum class ExitStatus : int {
    Success = 0,    ///< done; error lines may have been listed
    Failure = 1,    ///< nothing generated or a file not written whole; inspect: something found
    Usage = 2,      ///< the arguments or the files they name are wrong
    Canceled = 130, ///< stopped by Ctrl-C, as shells count it
};

} // namespace Tarnex::Cli
