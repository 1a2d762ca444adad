// SPDX-License-Identifier: MIT
#include "tools/plugins/PluginIndex.h"

#include "tools/plugins/LockWords.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace Tarnex::Report {

namespace {

constexpr std::string_view kContainerStart = "CTR";
constexpr std::string_view kKeyStart = "KEY";
constexpr std::string_view kDoor = "DOOR";
// What comes before the end of words such as doorway and doorjamb.
constexpr std::array<std::string_view, 3> kAroundDoors = {"WAY", "JAM", "FRAME"};

bool AreDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// The stamp and a number stand behind the word that says of what kind it is.
bool IsStamped(std::string_view id, std::string_view start) {
    if (!EqualsNoCase(id.substr(0, start.size()), start)) {
        return false;
    }
    const std::string_view numbers = id.substr(start.size());
    const std::size_t middle = std::min(numbers.find('_'), numbers.size());
    return AreDigits(numbers.substr(0, middle)) && middle < numbers.size() &&
           AreDigits(numbers.substr(middle + 1));
}

void Extend(std::optional<Bounds>& bounds, const Di3Point& point) {
    if (!bounds) {
        bounds = {point, point};
        return;
    }
    bounds->low = {std::min(bounds->low.x, point.x),
                   std::min(bounds->low.y, point.y),
                   std::min(bounds->low.z, point.z)};
    bounds->high = {std::max(bounds->high.x, point.x),
                    std::max(bounds->high.y, point.y),
                    std::max(bounds->high.z, point.z)};
}

} // namespace

PluginIndex::PluginIndex(const PluginFile& file) {
    for (const PluginCell& cell : file.cells) {
        cells.insert(ToUpper(cell.name));
    }
    for (const PluginContainer& container : file.containers) {
        containers.insert(ToUpper(container.id));
    }
    for (const PluginKey& key : file.keys) {
        keys.insert(ToUpper(key.id));
    }
    std::unordered_map<std::string_view, const PluginPathGrid*> byName;
    for (const PluginPathGrid& grid : file.pathGrids) {
        byName[grid.cell] = &grid;
    }
    for (const PluginCell& cell : file.cells) {
        if (const auto grid = byName.find(cell.name); grid != byName.end()) {
            pathGrids.emplace(&cell, grid->second);
            byName.erase(grid);
        }
    }
}

bool PluginIndex::HasCell(std::string_view name) const {
    return cells.contains(ToUpper(name));
}

bool PluginIndex::HasContainer(std::string_view id) const {
    return containers.contains(ToUpper(id));
}

bool PluginIndex::HasKey(std::string_view id) const {
    return keys.contains(ToUpper(id));
}

const PluginPathGrid* PluginIndex::PathGridOf(const PluginCell& cell) const {
    const auto found = pathGrids.find(&cell);
    return found == pathGrids.end() ? nullptr : found->second;
}

std::string GridWords(const PluginCell& cell) {
    return std::to_string(cell.column) + ", " + std::to_string(cell.row);
}

std::uint64_t UnreadExteriors(const PluginFile& file) {
    return file.exteriorCells - std::min<std::uint64_t>(file.exteriorCells, file.exteriors.size());
}

std::uint64_t CountWays(const PluginPathGrid& grid) {
    std::uint64_t count = 0;
    for (const PathPoint& point : grid.points) {
        count += point.ways.size();
    }
    return count;
}

bool IsContainerId(std::string_view id) {
    return IsStamped(id, kContainerStart);
}

bool IsKeyId(std::string_view id) {
    return IsStamped(id, kKeyStart);
}

bool IsDoorId(std::string_view id) {
    const std::string upper = ToUpper(id);
    const std::size_t place = upper.find(kDoor);
    if (place == std::string::npos) {
        return false;
    }
    const std::string_view rest = std::string_view(upper).substr(place + kDoor.size());
    return std::ranges::none_of(kAroundDoors,
                                [rest](std::string_view word) { return rest.starts_with(word); });
}

bool IsLightId(std::string_view id) {
    constexpr std::string_view kLight = "light_";
    return EqualsNoCase(id.substr(0, kLight.size()), kLight);
}

bool IsFinite(const Di3Point& point) {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

CellSummary Summarise(const PluginCell& cell, const PluginIndex& index) {
    CellSummary summary;
    for (const PluginRef& ref : cell.refs) {
        if (ref.deleted) {
            continue;
        }
        if (IsFinite(ref.place.position)) {
            Extend(summary.bounds, ref.place.position);
        }
        const bool isChest = index.HasContainer(ref.id) || IsContainerId(ref.id);
        summary.doors += ref.destination || IsDoorId(ref.id) ? 1 : 0;
        summary.teleports += ref.destination ? 1 : 0;
        summary.containers += isChest ? 1 : 0;
        if (ref.lock) {
            (isChest ? summary.lockedContainers : summary.lockedDoors) +=
                IsLocked(*ref.lock) ? 1 : 0;
            summary.traps += ref.lock->trap.empty() ? 0 : 1;
        }
    }
    return summary;
}

PluginTotals TotalsOf(const PluginFile& file, const PluginIndex& index) {
    PluginTotals totals;
    for (const PluginCell& cell : file.cells) {
        const CellSummary summary = Summarise(cell, index);
        totals.doors += summary.doors;
        totals.teleports += summary.teleports;
        totals.containers += summary.containers;
        for (const PluginRef& ref : cell.refs) {
            totals.references += ref.deleted ? 0 : 1;
            totals.lights += !ref.deleted && IsLightId(ref.id) ? 1 : 0;
        }
    }
    for (const PluginContainer& container : file.containers) {
        for (const PluginItem& item : container.items) {
            totals.items += static_cast<std::uint64_t>(std::abs(std::int64_t{item.count}));
        }
    }
    return totals;
}

} // namespace Tarnex::Report
