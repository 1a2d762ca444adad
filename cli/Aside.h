// SPDX-License-Identifier: MIT
// Work that need not be waited for.
#pragma once

#include <functional>
#include <ostream>

namespace Tarnex::Cli {

/// Has `write` fill a stream on a thread of its own and puts what comes into `to`, until `write`
/// returns, `to` fails, or a signal asks to stop, see CancelSignals. In the last two cases `to` has
/// failed, the thread is left to itself and nobody waits for it: a library that draws pictures
/// cannot be stopped on the way. So `write` must own what it uses, touch no file, and the process
/// has to end by EndProcessBesideThreads. What `write` throws is thrown.
void WriteAside(std::function<void(std::ostream&)> write, std::ostream& to);

/// Ends the process if a thread was left to itself, without destroying what the thread may use.
/// Otherwise returns.
void EndProcessBesideThreads(int status);

} // namespace Tarnex::Cli
