// SPDX-License-Identifier: MIT
// What runs share besides the objects that they are given.
#pragma once

#include <vaultry/foundation/DiPos.h>
#include <vaultry/foundation/Export.h>
#include <vaultry/foundation/Random.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace Tarnex {

/// Where the random generator stands; see Random.h. To repeat draws from a point on, copy it and
/// put the copy back; a seed does the same for a whole run.
struct ChanceState {
    std::uint32_t state = 1;         ///< of the generator
    std::uint64_t draws = 0;         ///< since recording began
    DrawRecorder recorder = nullptr; ///< told of every draw; may be null
    void* context = nullptr;         ///< handed to the recorder
};

struct LogState;
class ProblemListener;

/// The identifiers of containers; see ContainerIds.h. Identifiers never repeat while the number
/// only grows: set both together, through SetContainerStamp.
struct ContainerNumbers {
    std::optional<std::int64_t> stamp; ///< the clock's without
    std::uint64_t next = 1;            ///< the number of the next container
};

/// Everything that one run changes for the next besides the objects that it is given: chance, the
/// log, the numbers of containers, and the place that the log named last for want of a door.
///
/// There is one for the process, and all functions of the library use it, whatever thread calls
/// them. A UseRunState puts another in its place for a thread: threads that each use a state, a
/// GenMgr and objects of their own do not disturb each other.
///
/// @code
/// std::thread worker([] {
///     Tarnex::RunState state; // chance, log and numbers of this thread
///     const Tarnex::UseRunState use(&state);
///     Tarnex::Logger::InitWithoutFile(); // of this state's log
///     Tarnex::GenMgr manager;
///     // ... Init, Run, WriteMod: the bytes are those that the thread gives alone
/// });
/// @endcode
struct VAULTRY_API RunState {
    ChanceState chance;                  ///< drawn from by RandomInt and RandomUnit
    std::shared_ptr<LogState> log;       ///< written by Logger; never null
    ProblemListener* problems = nullptr; ///< the innermost; see Problem.h
    ContainerNumbers containers;         ///< counted by NextContainerId
    std::optional<DiPos> doorless;       ///< where a hall last found no place for a door [cells]

    /// Unseeded, with a log that the first line opens. Its first line goes to "Log.txt" in the
    /// working folder unless Logger::Init or InitWithoutFile was called while the state was in use.
    RunState();
    /// Unseeded, with that log, which is written by one thread at a time. Not null. For a state
    /// that should have a chance of its own, but tell its errors where another does.
    explicit RunState(std::shared_ptr<LogState> log);
    ~RunState();
    RunState(const RunState&) = delete;
    RunState& operator=(const RunState&) = delete;
};

/// The state that the calling thread uses: that of the innermost UseRunState, or the process's.
/// Never fails. The reference is good as long as that state lives; what is read through it is that
/// thread's business alone.
VAULTRY_API RunState& CurrentRunState();

/// While one lives, the thread that made it uses a state of its own. They may be nested and end in
/// the opposite order, on the same thread.
///
/// Copying and moving are ruled out, so that the order of nesting is that of the program's blocks.
class VAULTRY_API UseRunState {
public:
    /// `state` is not owned and must outlive the object; null stands for the process's. Takes
    /// effect at once, for the calling thread alone, whatever that thread calls. Never throws.
    explicit UseRunState(RunState* state);
    ~UseRunState();
    UseRunState(const UseRunState&) = delete;
    UseRunState& operator=(const UseRunState&) = delete;

    /// What the thread used before; null for the process's.
    RunState* Outer() const { return outer; }

private:
    RunState* outer;
};

} // namespace Tarnex
