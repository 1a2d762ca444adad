// SPDX-License-Identifier: MIT
#include <vaultry/foundation/RunState.h>

#include <vaultry/foundation/LogState.h>
#include <vaultry/foundation/ThreadLocal.h>

namespace Tarnex {

namespace {

VAULTRY_FIXED_PLACE constinit thread_local RunState* used = nullptr;

RunState& ProcessState() {
    static RunState state;
    return state;
}

} // namespace

RunState::RunState() : log(std::make_shared<LogState>()) {}
RunState::RunState(std::shared_ptr<LogState> log_) : log(std::move(log_)) {}
RunState::~RunState() = default;

RunState& CurrentRunState() {
    return used == nullptr ? ProcessState() : *used;
}

UseRunState::UseRunState(RunState* state) : outer(used) {
    used = state;
}

UseRunState::~UseRunState() {
    used = outer;
}

} // namespace Tarnex
