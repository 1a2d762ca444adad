// SPDX-License-Identifier: MIT
#include "embed/Generator.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>

namespace Tarnex {

bool CallState::Enter() {
    State idle = State::Idle;
    return state.compare_exchange_strong(idle, State::Busy);
}

void CallState::Cancel() {
    State busy = State::Busy;
    state.compare_exchange_strong(busy, State::Canceled);
}

void ProgressCall::SetFunction(vaultry_progress newFunction, void* newContext) {
    function = newFunction;
    context = newContext;
}

void ProgressCall::Restart(std::uint32_t newSteps, RunState* newCallers) {
    callers = newCallers;
    steps = static_cast<std::int32_t>(std::min<std::uint32_t>(newSteps, INT32_MAX));
    text.clear();
    JobStatus::SetPos(0);
}

bool ProgressCall::HasBeenCanceled() const {
    Ask();
    return call.HasBeenCanceled();
}

void ProgressCall::SetPos(std::int32_t position) {
    JobStatus::SetPos(position);
    Ask();
}

void ProgressCall::SetText(const std::string& newText) {
    text = ToUtf8(newText);
    Ask();
}

// A run that was cancelled stays so, whatever a later call answers.
void ProgressCall::Ask() const {
    if (function == nullptr || call.HasBeenCanceled()) {
        return;
    }
    const UseRunState use(callers);
    if (function(context, text.c_str(), GetPos(), steps) != 0) {
        call.Cancel();
    }
}

// The run was made of what could be read of a broken configuration, as only that switch has it.
Report::RunRequest RequestOf(const vaultry_generator& generator) {
    const LastRun& run = *generator.run;
    Report::RunRequest request;
    static_cast<RunOptions&>(request) = run.options;
    request.config = generator.config;
    request.keepGoing = generator.manager.GetConfigFault().has_value();
    request.stamp = run.result.stamp;
    return request;
}

void Tell(vaultry_generator& generator, std::string_view utf8) {
    generator.errors.push_back(ForTerminal(utf8));
}

} // namespace Tarnex
