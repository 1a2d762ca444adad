// SPDX-License-Identifier: MIT
#include "apps/vaultry/CancelSignals.h"

#include <algorithm>
#include <atomic>
#include <csignal>

#ifdef _WIN32
#include <windows.h>
#endif

namespace Tarnex::Cli {

namespace {

#ifdef SIGHUP
constexpr int kHangUp = SIGHUP;
#else
constexpr int kHangUp = SIGBREAK;
#endif

constexpr std::array kWatched = {SIGINT, SIGTERM, kHangUp};

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

#ifdef _WIN32

// A console that is closed ends its programs as soon as they have heard of it, or after some
// seconds: time to clean up is had by not returning. Keys come as signals.
BOOL WINAPI NoteClosing(DWORD event) {
    if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT) {
        return FALSE;
    }
    requested.store(true);
    Sleep(INFINITE);
    return TRUE;
}

void WatchConsole(bool watch) {
    SetConsoleCtrlHandler(NoteClosing, watch ? TRUE : FALSE);
}

#else

void WatchConsole(bool) {}

#endif

} // namespace

CancelSignals::CancelSignals() {
    requested.store(false);
    std::ranges::transform(kWatched, old.begin(), Watch);
    WatchConsole(true);
}

CancelSignals::~CancelSignals() {
    WatchConsole(false);
    for (std::size_t i = 0; i < kWatched.size(); ++i) {
        std::signal(kWatched[i], old[i]);
    }
}

bool CancelSignals::Requested() const {
    return requested.load();
}

} // namespace Tarnex::Cli
