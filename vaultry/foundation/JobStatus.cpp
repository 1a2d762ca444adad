// SPDX-License-Identifier: MIT
#include <vaultry/foundation/JobStatus.h>

namespace Tarnex {

JobStatus::~JobStatus() = default;

std::int32_t JobStatus::GetPos() const {
    return pos;
}

std::pair<std::int32_t, std::int32_t> JobStatus::GetRange() const {
    return {0, 0};
}

bool JobStatus::HasBeenCanceled() const {
    return false;
}

void JobStatus::SetPos(std::int32_t position) {
    pos = position;
}

void JobStatus::SetRange(std::int32_t /*low*/, std::int32_t /*high*/) {}

void JobStatus::SetText(const std::string& /*text*/) {}

void JobStatus::StepIt() {
    ++pos;
}

} // namespace Tarnex
