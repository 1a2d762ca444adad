// SPDX-License-Identifier: MIT
#include <vaultry/layout/RoomInfo.h>

#include <vaultry/foundation/DiDirection.h>
#include <vaultry/foundation/Grid.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace Tarnex {

namespace {

void Raise(std::uint32_t& maximum, std::int32_t extent) {
    maximum = std::max(maximum, static_cast<std::uint32_t>(std::max(extent, 0)));
}

void FileFirst(DiPtr<Layout>& slot, const DiPtr<Layout>& room) {
    if (!slot) {
        slot = room;
    }
}

} // namespace

RoomInfo::RoomInfo(const DiPos& size_)
    : size(size_), maxRowHeights(GetHeight()), maxColWidths(GetWidth()),
      rooms(GetHeight(), Row(GetWidth())) {}

const DiPtr<Layout>& RoomInfo::GetLayout(std::uint32_t row, std::uint32_t col) const {
    static const DiPtr<Layout> none;
    CheckColumn(col, GetWidth());
    return row < rooms.size() ? rooms[row][col] : none;
}

void RoomInfo::SetLayout(const DiPtr<Layout>& room, std::int32_t row, std::int32_t col) {
    const auto r = static_cast<std::uint32_t>(row);
    const auto c = static_cast<std::uint32_t>(col);
    CheckColumn(c, GetWidth());
    if (r >= rooms.size()) {
        return;
    }
    rooms[r][c] = room;
    if (room) {
        const DiPos total = room->GetTotalSize();
        Raise(maxRowHeights[r], total.y);
        Raise(maxColWidths[c], total.x);
    }
}

std::vector<DiPtr<Layout>> RoomInfo::GetRoomList() const {
    std::vector<DiPtr<Layout>> list;
    for (const Row& row : rooms) {
        std::ranges::copy_if(
            row, std::back_inserter(list), [](const DiPtr<Layout>& room) { return bool(room); });
    }
    return list;
}

DiPos RoomInfo::GetLogicalRoomPos(const Layout& room) const {
    for (std::size_t r = 0; r < rooms.size(); ++r) {
        for (std::size_t c = 0; c < rooms[r].size(); ++c) {
            if (rooms[r][c].get() == &room) {
                return {static_cast<std::int32_t>(c), static_cast<std::int32_t>(r), 0};
            }
        }
    }
    return {};
}

AdjacentRooms RoomInfo::GetAdjacentRooms(const Layout& room) const {
    AdjacentRooms adjacent;
    const DiPos here = GetLogicalRoomPos(room);
    for (std::int32_t r = 0; r < size.y; ++r) {
        for (std::int32_t c = 0; c < size.x; ++c) {
            const auto& other = rooms[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)];
            if (!other || other.get() == &room) {
                continue;
            }
            const DiDirection way(here, DiPos(c, r, 0));
            if (way.stepY < 0) {
                adjacent.north = other;
            } else if (way.stepY > 0) {
                FileFirst(adjacent.south, other);
            } else if (way.stepX > 0) {
                FileFirst(adjacent.east, other);
            } else if (way.stepX < 0) {
                adjacent.west = other;
            }
        }
    }
    return adjacent;
}

std::uint32_t RoomInfo::GetTotal(const std::vector<std::uint32_t>& extents) {
    // Saturates: what does not fit is too large for a level anyway.
    constexpr std::uint64_t kMax = std::numeric_limits<std::int32_t>::max();
    const auto total = std::accumulate(extents.begin(), extents.end(), std::uint64_t{0});
    return static_cast<std::uint32_t>(std::min(total, kMax));
}

} // namespace Tarnex
