// SPDX-License-Identifier: MIT
// What nobody waits for to be given back.
#pragma once

#include <memory>

namespace Tarnex::Cli {

/// Keeps an object until the process is gone. To take a large interior apart, piece by piece, takes
/// longer than somebody waits who has cancelled the run; the system takes its memory at once.
void KeepToTheEnd(std::shared_ptr<void> object);

} // namespace Tarnex::Cli
