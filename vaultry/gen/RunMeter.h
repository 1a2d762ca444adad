// SPDX-License-Identifier: MIT
// What a run has used up of what it may, and whether it is still wanted.
#pragma once

#include <vaultry/foundation/JobStatus.h>

#include <cstdint>

namespace Tarnex {

/// Ends a run out of the middle of a generator when it was cancelled. Never leaves Gen. Code of a
/// front end never meets it.
struct RunCanceled {};

/// Likewise when it needs more memory than a run may take.
struct LimitReached {};

/// Counts work and memory. Whatever a generator repeats for each cell, piece or turn takes a step
/// for each, so that a cancelled run ends within a moment and none grows without bound. Draws no
/// random numbers and changes no result.
///
/// Each GenInfo has one, for the run that is under way. It is of interest to whoever adds a stage
/// of generation; a front end reads what came of it in the result of the run.
class RunMeter {
public:
    /// The most steps between two questions whether the run was cancelled. A step looks at one
    /// thing; together they take a few thousandths of a second.
    static constexpr std::int64_t kStepsPerQuestion = 200'000;

    /// Begins a run. `status` may be null and must outlive it. What an earlier run used up is
    /// forgotten.
    void Start(const JobStatus* status);

    /// Asks whether the run was cancelled, and throws RunCanceled if so. What the status throws
    /// passes through.
    void Ask();

    /// Counts steps before they are made. Throws RunCanceled when the run was cancelled. Not
    /// negative. Next to free between two questions.
    void Step(std::int64_t steps = 1) {
        sinceQuestion += steps;
        if (sinceQuestion >= kStepsPerQuestion) {
            Ask();
        }
    }

    /// Likewise for steps of placing contents. False when the run has made as many as it may; the
    /// first time that is logged. The run goes on then: a dungeon with less in it is still one.
    bool StepPlacing(std::int64_t steps);

    /// Counts memory before it is taken. [bytes] Throws LimitReached when that is more than a run
    /// may take.
    void TakeMemory(std::uint64_t bytes);

    /// The memory counted so far. [bytes]
    std::uint64_t GetMemory() const { return memory; }
    /// Goes back to what was counted earlier, when all that was taken since is given back. [bytes]
    void ReturnTo(std::uint64_t earlier) { memory = earlier; }

private:
    const JobStatus* status = nullptr;
    std::int64_t sinceQuestion = 0;
    std::int64_t placing = 0;
    std::uint64_t memory = 0;
    bool loggedPlacing = false;
};

} // namespace Tarnex
