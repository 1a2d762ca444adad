// SPDX-License-Identifier: MIT
// What the standard library cannot tell about the streams.
#pragma once

namespace Tarnex::Cli {

/// Whether standard error is shown to somebody rather than kept.
bool StandardErrorIsTerminal();

} // namespace Tarnex::Cli
