// SPDX-License-Identifier: MIT
// How a verb ends, and what the program tells the shell.
#pragma once

namespace Tarnex::Cli {

enum class ExitStatus : int {
    Success = 0,    ///< done; error lines may have been listed
    Failure = 1,    ///< nothing generated or a file not written whole; inspect: something found
    Usage = 2,      ///< the arguments or the files they name are wrong
    Canceled = 130, ///< stopped by Ctrl-C, as shells count it
};

/// How a verb that generates ended.
enum class Ending {
    Written,    ///< what was asked for stands at its destination
    Drawn,      ///< generated for maps alone
    Refused,    ///< nothing was generated
    NotWritten, ///< generated, but a file could not be written
    Strict,     ///< not written because of an error, as asked
    Unwalkable, ///< not written: no seed that was tried made every room reachable
    Unclosed,   ///< likewise, and on all that did something opens onto nothing
    Canceled,
};

/// The word of an ending in reports.
const char* WordOf(Ending ending);

ExitStatus StatusOf(Ending ending);

} // namespace Tarnex::Cli
