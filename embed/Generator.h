// SPDX-License-Identifier: MIT
// What stands behind the handle of the C interface, and how every call enters it.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/runs/RunLine.h"

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/run/Run.h>
#include <vaultry/vaultry.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex {

/// Whether a call is under way, and whether somebody wants it to end, which ends what reads. Any
/// thread may ask.
class CallState : public JobStatus {
public:
    /// Begins a call; false when there is one already.
    bool Enter();
    /// Ends it; that it was to be cancelled is forgotten.
    void Leave() { state = State::Idle; }
    /// Cancels the call that is under way, if there is one.
    void Cancel();
    bool IsBusy() const { return state != State::Idle; }
    bool HasBeenCanceled() const override { return state == State::Canceled; }

private:
    enum class State : std::uint8_t { Idle, Busy, Canceled };
    std::atomic<State> state = State::Idle;
};

/// Hands the progress of a run to a C function.
class ProgressCall : public JobStatus {
public:
    explicit ProgressCall(CallState& callState) : call(callState) {}

    /// A null function is never called.
    void SetFunction(vaultry_progress newFunction, void* newContext);
    /// Before each run of so many steps. The function is called in the state of whoever called for
    /// the run (null: the process's), so that nothing that it does with the library changes the
    /// run.
    void Restart(std::uint32_t newSteps, RunState* newCallers);

    bool HasBeenCanceled() const override;
    void SetPos(std::int32_t position) override;
    void SetText(const std::string& newText) override;
    void StepIt() override { SetPos(GetPos() + 1); }

private:
    void Ask() const;

    CallState& call;
    vaultry_progress function = nullptr;
    void* context = nullptr;
    std::string text; // UTF-8
    RunState* callers = nullptr;
    std::int32_t steps = 0;
};

/// What the last run came to.
struct LastRun {
    RunResult result;
    RunOptions options;                         ///< that it was made with
    std::shared_ptr<Report::MapCollector> maps; ///< of its levels
    std::string beside;                         ///< see Report::Description
};

} // namespace Tarnex

/// A generator with what the C interface adds to it. All its text is UTF-8.
struct vaultry_generator {
    Tarnex::CallState call; ///< all else is that call's, while one is under way
    Tarnex::GenMgr manager;
    Tarnex::ProgressCall progress{call};
    Tarnex::RunOptions options;
    std::string config;                    ///< the name of what was read
    std::vector<Tarnex::Problem> problems; ///< met while it was read
    std::size_t configErrors = 0;          ///< likewise, lines in the log
    std::optional<Tarnex::LastRun> run;    ///< of this configuration
    std::uint32_t lastSeed = 0;
    std::int64_t lastStamp = 0;
    std::string text; ///< that was handed out last
    std::vector<std::string> errors;
};

namespace Tarnex {

/// Runs a call. Memory is the one thing that the library throws for.
template <typename Call>
vaultry_result Guard(const Call& call) noexcept {
    try {
        return call();
    } catch (const std::bad_alloc&) {
        return VAULTRY_NO_MEMORY;
    } catch (...) {
        return VAULTRY_REFUSED;
    }
}

/// A call to a generator, unless another one is under way: in a progress function, or on another
/// thread. Both the library's log and chance are the call's own, so that no call leaves anything
/// for the next and all generators may work at once. The call is given the caller's state.
template <typename Call>
vaultry_result Enter(vaultry_generator& generator, const Call& call) noexcept {
    if (!generator.call.Enter()) {
        return VAULTRY_BUSY;
    }
    const vaultry_result result = Guard([&] {
        RunState state;
        const UseRunState use(&state);
        Logger::InitWithoutFile();
        return call(use.Outer());
    });
    generator.call.Leave();
    return result;
}

/// What the last run, which there is, was asked for and used.
Report::RunRequest RequestOf(const vaultry_generator& generator);

/// Adds an error. Whatever it quotes, the C side gets one line of UTF-8.
void Tell(vaultry_generator& generator, std::string_view utf8);

/// Takes back every name that was set: they are those of another configuration.
void ForgetNames(vaultry_generator& generator);

/// Sets an option from its text (both UTF-8). Returns what is wrong with them; empty for nothing,
/// otherwise the generator is as it was.
std::string
SetOption(vaultry_generator& generator, std::string_view option, std::string_view value);

/// A text of the C side, which may be null.
inline const char* TextOf(const char* text) {
    return text == nullptr ? "" : text;
}

} // namespace Tarnex
