// SPDX-License-Identifier: MIT
#include "cli/CancelSignals.h"

#include "cli/ExitStatus.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>

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

class RequestStatus : public JobStatus {
public:
    bool HasBeenCanceled() const override { return requested.load(); }
};

extern "C" void NoteSignal(int /*number*/) {
    requested.store(true);
}

extern "C" void EndAtOnce(int /*number*/) {
    std::_Exit(static_cast<int>(ExitStatus::Canceled));
}

#ifdef _WIN32

SignalAction SetAction(int number, const SignalAction& action) {
    return std::signal(number, action);
}

// The system sets a handler back before it calls it.
SignalAction ActionOf(void (*handler)(int)) {
    return handler;
}

bool Ignores(const SignalAction& action) {
    return action == SIG_IGN;
}

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

SignalAction SetAction(int number, const SignalAction& action) {
    SignalAction old{};
    sigaction(number, &action, &old);
    return old;
}

// Set back before it is called, and no call of the system that it interrupts is begun again.
SignalAction ActionOf(void (*handler)(int)) {
    SignalAction action{};
    action.sa_handler = handler;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    return action;
}

bool Ignores(const SignalAction& action) {
    return action.sa_handler == SIG_IGN;
}

void WatchConsole(bool) {}

#endif

} // namespace

StopSignals::StopSignals(void (*handler)(int)) {
    std::ranges::transform(kWatched, old.begin(), [handler](int number) {
        const SignalAction before = SetAction(number, ActionOf(handler));
        if (Ignores(before)) {
            SetAction(number, before);
        }
        return before;
    });
}

StopSignals::~StopSignals() {
    for (std::size_t i = 0; i < kWatched.size(); ++i) {
        SetAction(kWatched[i], old[i]);
    }
}

CancelSignals::CancelSignals() {
    requested.store(false);
    signals.emplace(NoteSignal);
#ifndef _WIN32
    oldPipe = SetAction(SIGPIPE, ActionOf(SIG_IGN));
#endif
    WatchConsole(true);
}

CancelSignals::~CancelSignals() {
    WatchConsole(false);
#ifndef _WIN32
    SetAction(SIGPIPE, oldPipe);
#endif
    signals.reset();
    requested.store(false);
}

bool CancelSignals::Requested() const {
    return requested.load();
}

const JobStatus& CancelSignals::Status() {
    static const RequestStatus status;
    return status;
}

EndingSignals::EndingSignals() : StopSignals(EndAtOnce) {}

} // namespace Tarnex::Cli
