// SPDX-License-Identifier: MIT
#include "apps/vaultry/CancelSignals.h"

#include <atomic>
#include <csignal>

namespace Tarnex::Cli {

namespace {

std::atomic<bool> requested = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler sets it");

extern "C" void NoteSignal(int number) {
    requested.store(true);
    std::signal(number, SIG_DFL);
}

auto Watch(int number) {
    const auto old = std::signal(number, NoteSignal);
    if (old == SIG_IGN) {
        std::signal(number, SIG_IGN);
    }
    return old;
}

} // namespace

CancelSignals::CancelSignals() {
    requested.store(false);
    oldInterrupt = Watch(SIGINT);
    oldTerminate = Watch(SIGTERM);
}

CancelSignals::~CancelSignals() {
    std::signal(SIGINT, oldInterrupt);
    std::signal(SIGTERM, oldTerminate);
}

bool CancelSignals::Requested() const {
    return requested.load();
}

} // namespace Tarnex::Cli
