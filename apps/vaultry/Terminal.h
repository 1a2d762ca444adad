// SPDX-License-Identifier: MIT
// What the standard library cannot tell about the streams.
#pragma once

namespace Tarnex::Cli {

/// Whether standard error is shown to somebody rather than kept.
bool StandardErrorIsTerminal();

/// Whether standard output is a terminal whose owner did not refuse colours by NO_COLOR.
bool StandardOutputTakesColour();

} // namespace Tarnex::Cli
