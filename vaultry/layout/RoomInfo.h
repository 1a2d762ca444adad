// SPDX-License-Identifier: MIT
// The grid of rooms of a random level.
#pragma once

#include <vaultry/layout/AdjacentRooms.h>
#include <vaultry/layout/Layout.h>

#include <vector>

namespace Tarnex {

/// A coarse grid of room slots with the widest room of each column and the tallest of each row.
/// Slots are addressed (row, column); as a DiPos a slot is (column, row, 0).
class RoomInfo {
public:
    /// The slots of one row, west to east; null where a slot is empty.
    using Row = std::vector<DiPtr<Layout>>;

    /// size.x columns and size.y rows of empty slots.
    explicit RoomInfo(const DiPos& size);
    RoomInfo(const RoomInfo&) = delete;
    RoomInfo& operator=(const RoomInfo&) = delete;

    /// Columns, rows and the z that the grid was made with. [slots]
    const DiPos& GetSize() const { return size; }
    /// The number of columns.
    std::uint32_t GetWidth() const { return static_cast<std::uint32_t>(size.x); }
    /// The number of rows.
    std::uint32_t GetHeight() const { return static_cast<std::uint32_t>(size.y); }

    /// The slots of one row; the index is not checked.
    Row& GetRow(std::uint32_t row) { return rooms[row]; }

    /// The room in a slot, or null. Throws std::out_of_range for a column outside the grid; a row
    /// outside gives null.
    const DiPtr<Layout>& GetLayout(std::uint32_t row, std::uint32_t col) const;
    /// Stores the room and raises the maxima of its row and column to its total size; they never
    /// fall. Throws std::out_of_range for a column outside the grid; a row outside is dropped.
    void SetLayout(const DiPtr<Layout>& room, std::int32_t row, std::int32_t col);

    /// The height of the tallest room of a row and the width of the widest of a column, gaps that
    /// were added included. Indices are not checked. [cells]
    /// @{

    std::uint32_t GetMaxRowHeight(std::uint32_t row) const { return maxRowHeights[row]; }
    void SetMaxRowHeight(std::uint32_t row, std::uint32_t value) { maxRowHeights[row] = value; }
    std::uint32_t GetMaxColWidth(std::uint32_t col) const { return maxColWidths[col]; }
    void SetMaxColWidth(std::uint32_t col, std::uint32_t value) { maxColWidths[col] = value; }

    /// @}

    /// The sum of all column widths. [cells]
    std::uint32_t GetTotalWidth() const { return GetTotal(maxColWidths); }
    /// The sum of all row heights. [cells]
    std::uint32_t GetTotalHeight() const { return GetTotal(maxRowHeights); }

    /// The rooms, row by row.
    std::vector<DiPtr<Layout>> GetRoomList() const;
    /// The slot of a room; (0, 0, 0) when it is not in the grid.
    DiPos GetLogicalRoomPos(const Layout& room) const;
    /// The rooms around a room by the longer axis to each, row by row: to the north and west the
    /// last one wins, to the south and east the first.
    AdjacentRooms GetAdjacentRooms(const Layout& room) const;

private:
    static std::uint32_t GetTotal(const std::vector<std::uint32_t>& extents);

    DiPos size;
    std::vector<std::uint32_t> maxRowHeights;
    std::vector<std::uint32_t> maxColWidths;
    std::vector<Row> rooms;
};

} // namespace Tarnex
