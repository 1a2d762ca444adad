// SPDX-License-Identifier: MIT
#include <vaultry/gen/ContentPlace.h>

#include <vaultry/catalogue/Mirroring.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Numeric.h>

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>

namespace Tarnex {

namespace {

using Axis = float Di3Point::*;

// When the thickness of the wall is added to the way from the centre to the wall.
enum class Thickness { After, Before, WithDepth };

// How content is pushed against the wall of an element, and along it into a corner.
struct WallRow {
    std::string_view kind;
    std::int32_t turn;   // of the item, whose front faces north [degrees]
    Axis depth;          // the axis across the wall
    double outward;      // the sign of the way towards the wall on that axis
    Thickness thickness; // "WithDepth" for reduced tiles only, "After" for full ones then
    Axis along;          // the axis along the wall
    double inward;       // the sign of the way out of the corner; 0 for a straight wall
};

constexpr Axis kX = &Di3Point::x;
constexpr Axis kY = &Di3Point::y;

// clang-format off
constexpr std::array<WallRow, 8> kWalls = {{
    // kind          turn  depth  outward  thickness             along  inward
    {Tile_nWall,      0,   kY,     1.0,    Thickness::After,      kX,    0.0},
    {Tile_NeCorner,   0,   kY,     1.0,    Thickness::After,      kX,   -1.0},
    {Tile_sWall,    180,   kY,    -1.0,    Thickness::Before,     kX,    0.0},
    {Tile_SwCorner, 180,   kY,    -1.0,    Thickness::Before,     kX,    1.0},
    {Tile_wWall,    270,   kX,    -1.0,    Thickness::WithDepth,  kY,    0.0},
    {Tile_NwCorner, 270,   kX,    -1.0,    Thickness::WithDepth,  kY,   -1.0},
    {Tile_eWall,     90,   kX,     1.0,    Thickness::WithDepth,  kY,    0.0},
    {Tile_SeCorner,  90,   kX,     1.0,    Thickness::WithDepth,  kY,    1.0},
}};

// The way into the open part of a cave's hall corner.
struct CaveCornerRow {
    std::string_view kind;
    double sign; // on the x axis
};

constexpr std::array<CaveCornerRow, 4> kCaveCorners = {{
    {Tile_HallCornerNW,  1.0},
    {Tile_HallCornerSW,  1.0},
    {Tile_HallCornerNE, -1.0},
    {Tile_HallCornerSE, -1.0},
}};
// clang-format on

constexpr double kCaveHallLift = 32.0; // the floor of a cave's hall corner lies higher

template <typename Row>
const Row* FindRow(std::span<const Row> rows, std::string_view kind) {
    const auto found =
        std::ranges::find_if(rows, [kind](const Row& row) { return row.kind == kind; });
    return found == rows.end() ? nullptr : &*found;
}

struct Fit {
    double tileSize;
    double thickness;
    bool reduced; // a half or quarter tile, whose wall runs through the middle of the cell
};

void PushToWall(ContentItem& item, const WallRow& row, const Fit& fit) {
    float& depth = item.offset.*row.depth;
    const double halfDepth = item.size.y * 0.5;
    // The wall stands in the middle of the cell, so that there is no way to it from the centre.
    if (fit.reduced && row.thickness == Thickness::WithDepth) {
        Add(depth, -row.outward * (fit.thickness + halfDepth));
        return;
    }
    if (row.thickness == Thickness::Before) {
        Add(depth, -row.outward * fit.thickness);
    }
    // Step by step, and rounded at each: for southern walls the thickness comes first.
    const double toWall = (fit.tileSize - item.size.y) * 0.5;
    Add(depth, row.outward * (fit.reduced ? -halfDepth : toWall));
    if (row.thickness != Thickness::Before) {
        Add(depth, -row.outward * fit.thickness);
    }
}

void PushFromCorner(ContentItem& item, const WallRow& row, const Fit& fit) {
    float& along = item.offset.*row.along;
    // Along the second wall of the corner, clear of its stone.
    Add(along, row.inward * fit.thickness);
    if (fit.reduced) {
        Add(along, row.inward * (item.size.x * 0.5));
    }
}

void FitAtWall(ContentItem& item, const WallRow& row, const Fit& fit) {
    // Items are drawn with their back to the north; the offset that their author gave turns with
    // them.
    if (row.turn != 0) {
        item.zRotate = NormalizeAngle(std::int64_t{item.zRotate} + row.turn);
        RotateOffset(item.offset, row.turn);
    }
    PushToWall(item, row, fit);
    if (row.inward != 0.0) {
        PushFromCorner(item, row, fit);
    }
}

constexpr std::array<std::pair<std::string_view, RefSort>, 5> kSorts = {{
    {Content_Container, RefSort::Container},
    {Content_Creature, RefSort::Creature},
    {Content_Furniture, RefSort::Furniture},
    {Content_Rug, RefSort::Rug},
    {Content_Tapestry, RefSort::Tapestry},
}};

} // namespace

PlacementCounts CountPlacements(const ThemeItem& item, std::uint32_t count) {
    // The share of the places, cut: a tenth of nine places is none.
    const std::int64_t n = TruncToInt(count * double{item.ratio});
    PlacementCounts counts{};
    // Exactly -1 is not given. Other negative numbers are, and ask for nothing.
    if (item.minimum != ThemeItem::kNotGiven) {
        counts.minimum = item.minimum;
    } else {
        // What is certain is all placed; what falls to chance may be missing altogether.
        counts.minimum = item.chance >= 1.0F ? n : 0;
    }
    if (item.maximum != ThemeItem::kNotGiven) {
        counts.maximum = item.maximum;
    } else {
        // One more than the share if there is room, or small rooms would never see a rare thing.
        counts.maximum = n < std::int64_t{count} ? n + 1 : n;
    }
    return counts;
}

PlacementCounts CountTreasure(const ThemeItem& item, std::uint32_t count) {
    PlacementCounts counts = CountPlacements(item, count);
    if (item.maximum == ThemeItem::kNotGiven) {
        counts.maximum = std::max(counts.maximum, counts.minimum);
    }
    return counts;
}

void FitIntoElement(ContentItem& item, const GridElmt& elmt, const TileSet& tileSet) {
    const Tile& first = *elmt.FirstTile();
    const std::int32_t tileSize = tileSet.GetTileSize();
    Fit fit{static_cast<double>(tileSize), tileSet.GetWallThickness(), !first.IsFullSize()};
    if (!elmt.platforms.empty()) {
        Add(item.offset.z, elmt.platformHeight);
        fit.thickness *= 0.5;
    }
    // Pieces are placed by their middle: this sets the item onto the floor of the cell.
    Add(item.offset.z, -((fit.tileSize - item.size.z) * 0.5));

    const std::string_view kind = first.kindName.Kind().Name();
    if (const WallRow* wall = FindRow<WallRow>(kWalls, kind)) {
        FitAtWall(item, *wall, fit);
        return;
    }
    // Elsewhere the middle of the cell is the middle of the floor.
    if (!tileSet.IsCave()) {
        return;
    }
    if (const CaveCornerRow* corner = FindRow<CaveCornerRow>(kCaveCorners, kind)) {
        const std::int32_t quarter = tileSize / 4;
        Add(item.offset.x, corner->sign * quarter);
        Add(item.offset.z, kCaveHallLift);
    }
}

std::int32_t TurnIn(const GridElmt& elmt) {
    const Tile* first = elmt.FirstTile();
    const WallRow* wall =
        first == nullptr ? nullptr : FindRow<WallRow>(kWalls, first->kindName.Kind().Name());
    return wall == nullptr ? 0 : wall->turn;
}

RefSort SortOf(const ContentItem& item) {
    for (const auto& [kind, sort] : kSorts) {
        if (item.IsKind(kind)) {
            return sort;
        }
    }
    return RefSort::Other;
}

} // namespace Tarnex
