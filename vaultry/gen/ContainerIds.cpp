// SPDX-License-Identifier: MIT
#include <vaultry/gen/ContainerIds.h>

#include <ctime>
#include <optional>

namespace Tarnex {

namespace {

std::optional<std::int64_t> fixedStamp;
std::uint64_t nextNumber = 1;

std::int64_t Stamp() {
    return fixedStamp ? *fixedStamp : static_cast<std::int64_t>(std::time(nullptr));
}

} // namespace

void SetContainerStamp(std::int64_t seconds) {
    fixedStamp = seconds;
    nextNumber = 1;
}

std::string NextContainerId() {
    return "Ctr" + std::to_string(Stamp()) + "_" + std::to_string(nextNumber++);
}

} // namespace Tarnex
