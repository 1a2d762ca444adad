// SPDX-License-Identifier: MIT
// The ways of one cell.
#pragma once

#include <vaultry/output/Element.h>

#include <string>
#include <vector>

namespace Tarnex {

/// A path grid has no more points: their number has 16 bits, one of them for the sign.
inline constexpr std::size_t kMostPathPoints = 32767;

/// No more ways lead away from a point: their number has 8 bits.
inline constexpr std::size_t kMostPathWays = 255;

/// A place where somebody walks.
struct PathPoint {
    std::int32_t x = 0; ///< to the east [world units]
    std::int32_t y = 0; ///< to the north [world units]
    std::int32_t z = 0; ///< of the floor [world units]
    /// The points to which a straight way leads, by their place in the list; at most kMostPathWays.
    /// The game turns none around: that somebody may come back is a way of the other point.
    std::vector<std::uint32_t> ways;

    /// Equality of place and ways.
    bool operator==(const PathPoint&) const = default;
};

/// The path grid of an interior: the points and ways by which those who live there wander and
/// follow. Made by Mod::CreatePathGrid.
class VAULTRY_API PathGrid : public Element {
public:
    /// A grid for the cell of exactly that name, upper and lower case included; not null. An empty
    /// name would be that of the world outside.
    explicit PathGrid(const char* cell_) : cell(cell_) {}

    /// The points, at most kMostPathPoints. Every way leads to one of them: the game does not look.
    std::vector<PathPoint> points;

    /// The cell that the grid belongs to.
    const std::string& GetCell() const { return cell; }

    /// Writes the record.
    void Write(std::ostream& stream) override;

private:
    std::string cell;
};

} // namespace Tarnex
