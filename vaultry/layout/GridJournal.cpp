// SPDX-License-Identifier: MIT
#include <vaultry/layout/GridJournal.h>

#include <cstddef>
#include <utility>

namespace Tarnex {

namespace {

constexpr std::size_t kUsualEntries = 64; // more than most attempts touch

} // namespace

GridJournal::GridJournal(Layout& grid_) : grid(grid_) {
    entries.reserve(kUsualEntries);
}

void GridJournal::Touch(const DiPos& pos) {
    const auto row = static_cast<std::uint32_t>(pos.y);
    const auto col = static_cast<std::uint32_t>(pos.x);
    if (row >= grid.GetHeight() || col >= grid.GetWidth()) {
        return;
    }
    const DiPtr<GridElmt>& elmt = grid.GetElmt(row, col);
    Entry& entry = entries.emplace_back();
    entry.pos = pos;
    entry.wasEmpty = !elmt;
    if (elmt) {
        entry.tiles = elmt->tiles;
    }
}

// A cell touched twice has two entries; undoing the newest first ends with the oldest state.
void GridJournal::Rollback() {
    OwnElements();
    for (; !entries.empty(); entries.pop_back()) {
        Entry& entry = entries.back();
        if (entry.wasEmpty) {
            grid.SetElmt(nullptr, entry.pos.y, entry.pos.x);
            continue;
        }
        const auto row = static_cast<std::uint32_t>(entry.pos.y);
        const auto col = static_cast<std::uint32_t>(entry.pos.x);
        grid.GetElmt(row, col)->tiles = std::move(entry.tiles);
    }
}

void GridJournal::OwnElements() {
    if (ownsElements) {
        return;
    }
    ownsElements = true;
    for (std::uint32_t row = 0; row < grid.GetHeight(); ++row) {
        for (DiPtr<GridElmt>& elmt : grid.GetRow(row)) {
            if (elmt) {
                elmt = MakeDi<GridElmt>(*elmt);
            }
        }
    }
}

} // namespace Tarnex
