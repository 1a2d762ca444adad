// SPDX-License-Identifier: MIT
// What the standard library cannot tell about the streams.
#pragma once

#include <functional>

namespace Tarnex::Cli {

/// Whether standard error is shown to somebody rather than kept.
bool StandardErrorIsTerminal();

/// Whether standard output is a terminal that shows colours and whose owner did not refuse them by
/// NO_COLOR.
bool StandardOutputTakesColour();

/// While one lives, what is written to the standard streams arrives as it is: without changed line
/// ends in a file or pipe, and in a console as UTF-8 with the meaning of escape sequences. Windows
/// needs to be told; its console is left as it was found.
class StreamSetup {
public:
    StreamSetup();
    ~StreamSetup();
    StreamSetup(const StreamSetup&) = delete;
    StreamSetup& operator=(const StreamSetup&) = delete;

private:
    std::function<void()> restore; // may be empty
};

} // namespace Tarnex::Cli
