// SPDX-License-Identifier: MIT
#include <vaultry/gen/RunMeter.h>

#include <vaultry/foundation/Problem.h>
#include <vaultry/gen/Limits.h>

namespace Tarnex {

void RunMeter::Start(const JobStatus* status_) {
    // What the last run used up is not this one's.
    *this = RunMeter();
    status = status_;
}

void RunMeter::Ask() {
    // Before the question, which may throw: the next one comes a full count later.
    sinceQuestion = 0;
    if (status != nullptr && status->HasBeenCanceled()) {
        throw RunCanceled();
    }
}

// Placing ends where the rest of the run goes on: a dungeon with less in it is still one.
bool RunMeter::StepPlacing(std::int64_t steps) {
    Step(steps);
    placing += steps;
    if (placing <= kMaxPlacingSteps) {
        return true;
    }
    // Once per run: every item of every theme would say it again.
    if (!loggedPlacing) {
        loggedPlacing = true;
        ReportProblem({ProblemKind::TooMuchPlacing, {std::to_string(kMaxPlacingSteps)}});
    }
    return false;
}

void RunMeter::TakeMemory(std::uint64_t bytes) {
    memory += bytes;
    // Before the system has none left, which would end other programs first.
    if (memory > kMaxRunMemory) {
        throw LimitReached();
    }
}

} // namespace Tarnex
