// SPDX-License-Identifier: MIT
// Ctrl-C as a request instead of an end.
#pragma once

#include <vaultry/foundation/JobStatus.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <optional>

namespace Tarnex::Cli {

#ifdef _WIN32
using SignalAction = void (*)(int);
#else
using SignalAction = struct sigaction;
#endif

/// Takes the signals that ask a process to stop, SIGINT, SIGTERM and a closed terminal's SIGHUP,
/// for as long as it lives. A second one of a kind ends the process as it usually does. A signal
/// that the process was started to ignore stays ignored.
class StopSignals {
public:
    explicit StopSignals(void (*handler)(int));
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

private:
    static constexpr std::size_t kSignals = 3;

    std::array<SignalAction, kSignals> old{};
};

/// While one lives, these signals are noted instead of ending the process, and end the wait of
/// whoever waits for the system. Nobody's reading what is written ends no process either: what was
/// begun is still finished or removed. Only one may live at a time.
class CancelSignals {
public:
    CancelSignals();
    ~CancelSignals();
    CancelSignals(const CancelSignals&) = delete;
    CancelSignals& operator=(const CancelSignals&) = delete;

    /// Whether a signal arrived since the object was made.
    bool Requested() const;

    /// Asks the same; never once nobody lives. It is always there.
    static const JobStatus& Status();

private:
    std::optional<StopSignals> signals;
#ifndef _WIN32
    SignalAction oldPipe{};
#endif
};

/// While one lives, these signals end the process at once, with the status of a cancelled run: for
/// verbs that leave nothing half done.
class EndingSignals : StopSignals {
public:
    EndingSignals();
};

} // namespace Tarnex::Cli
