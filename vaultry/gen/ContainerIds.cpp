// SPDX-License-Identifier: MIT
#include <vaultry/gen/ContainerIds.h>

#include <vaultry/foundation/RunState.h>

#include <ctime>

namespace Tarnex {

void SetContainerStamp(std::int64_t seconds) {
    CurrentRunState().containers = {seconds, 1};
}

std::string NextContainerId() {
    ContainerNumbers& numbers = CurrentRunState().containers;
    // Containers of two plug-ins that a player loads together must not share a name; the second of
    // their making tells them apart.
    const std::int64_t stamp =
        numbers.stamp ? *numbers.stamp : static_cast<std::int64_t>(std::time(nullptr));
    return "Ctr" + std::to_string(stamp) + "_" + std::to_string(numbers.next++);
}

} // namespace Tarnex
