// SPDX-License-Identifier: MIT
#include <vaultry/gen/PlatformPlan.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Numeric.h>

#include <algorithm>
#include <array>

namespace Tarnex {

namespace {

// The formulas of the first slab's place; T is the cell, S the slab, t the element's tile. The
// slab's y size stands in x formulas too, and that is meant.
enum class Start {
    MinusRestY,         // -(T - Sy) / 2
    MinusRestX,         // -(T - Sx) / 2
    MinusRestXPlusTile, // -(T - Sx) / 2 + the tile's own x offset
    PlusRestY,          // (T - Sy) / 2
    HalfY,              // Sy / 2
    HalfX,              // Sx / 2
};

// Beams carry the edge that looks into the cave; where the wall is, the rock does.
enum class Edge { None, Near, Far };

struct PlanRow {
    std::string_view kind;
    Start xFull;
    Start xHalf;
    Start yFull;
    Start yHalf;
    bool halvesColumns; // for half and quarter tiles
    bool halvesRows;
    std::string_view stairs; // empty: no stairs
    float Di3Point::*axis;   // on which the stairs stand before or behind the slabs
    bool stairsBehind;
    Edge beamRow;
    Edge beamColumn;
};

constexpr auto kX = &Di3Point::x;
constexpr auto kY = &Di3Point::y;

// clang-format off
constexpr std::array<PlanRow, 8> kPlans = {{
    // kind          x full             x half                     y full             y half             cols   rows   stairs          axis behind beam row    beam column
    {Tile_nWall,    Start::MinusRestY, Start::MinusRestY,         Start::MinusRestY, Start::MinusRestY, false, true,  Tile_nStairsUp, kY,  false, Edge::Near, Edge::None},
    {Tile_NeCorner, Start::MinusRestY, Start::MinusRestX,         Start::MinusRestY, Start::MinusRestY, true,  true,  {},             kX,  false, Edge::None, Edge::None},
    {Tile_sWall,    Start::MinusRestY, Start::MinusRestY,         Start::PlusRestY,  Start::HalfY,      false, true,  Tile_sStairsUp, kY,  true,  Edge::Far,  Edge::None},
    {Tile_SwCorner, Start::MinusRestY, Start::MinusRestXPlusTile, Start::PlusRestY,  Start::HalfY,      true,  true,  {},             kX,  false, Edge::None, Edge::None},
    {Tile_wWall,    Start::MinusRestY, Start::MinusRestXPlusTile, Start::MinusRestY, Start::MinusRestY, true,  false, Tile_wStairsUp, kX,  true,  Edge::None, Edge::Far},
    {Tile_NwCorner, Start::MinusRestY, Start::MinusRestXPlusTile, Start::MinusRestY, Start::MinusRestY, true,  true,  {},             kX,  false, Edge::None, Edge::None},
    {Tile_eWall,    Start::PlusRestY,  Start::MinusRestX,         Start::MinusRestY, Start::MinusRestY, true,  false, Tile_eStairsUp, kX,  false, Edge::None, Edge::Near},
    {Tile_SeCorner, Start::PlusRestY,  Start::MinusRestX,         Start::MinusRestY, Start::HalfX,      true,  true,  {},             kX,  false, Edge::None, Edge::None},
}};

// Larger cells have higher steps: a platform must look like one beside its walls.
struct HeightRow {
    std::int32_t below; // size of a cell
    std::int32_t height;
};

constexpr std::array<HeightRow, 2> kHeights = {{{512, 16}, {1024, 32}}};
constexpr std::int32_t kGreatestHeight = 64;
// clang-format on

float Evaluate(Start start, const Tile& tile, const Di3Point& slab, double tileSize) {
    const double restX = tileSize - slab.x;
    const double restY = tileSize - slab.y;
    switch (start) {
    case Start::MinusRestY:
        return static_cast<float>(-restY * 0.5);
    case Start::MinusRestX:
        return static_cast<float>(-restX * 0.5);
    case Start::MinusRestXPlusTile:
        return static_cast<float>(-restX * 0.5 + tile.offset.x);
    case Start::PlusRestY:
        return static_cast<float>(restY * 0.5);
    case Start::HalfY:
        return static_cast<float>(slab.y * 0.5);
    case Start::HalfX:
        return static_cast<float>(slab.x * 0.5);
    }
    return 0.0F;
}

// Whole slabs only; what is left of the cell stays bare.
std::int32_t SlabCount(std::int32_t tileSize, float slab) {
    return slab == 0.0F ? 0 : TruncToInt(tileSize / double{slab});
}

// A platform without slabs has no last one to carry a beam.
std::int32_t EdgeIndex(Edge edge, std::int32_t count) {
    switch (edge) {
    case Edge::Near:
        return 0;
    case Edge::Far:
        return count > 0 ? count - 1 : PlatformPlan::kNoBeams;
    default:
        return PlatformPlan::kNoBeams;
    }
}

std::optional<StairsPlan> PlanStairs(const PlanRow& row, const PlatformPlan& plan, Di3Point slab) {
    if (row.stairs.empty()) {
        return std::nullopt;
    }
    const bool alongX = row.axis == kX;
    const double start = alongX ? plan.x : plan.y;
    const double size = slab.*row.axis;
    const std::int32_t count = alongX ? plan.columns : plan.rows;
    // Behind means past the last slab, counted with the slabs that there are.
    const double place = row.stairsBehind ? count * size + start : start - size;
    return StairsPlan{row.stairs, row.axis, static_cast<float>(place)};
}

} // namespace

std::int32_t PlatformHeight(std::int32_t tileSize) {
    for (const HeightRow& row : kHeights) {
        if (tileSize < row.below) {
            return row.height;
        }
    }
    return kGreatestHeight;
}

std::optional<PlatformPlan>
PlanPlatform(const Tile& tile, const PlatformTile& floor, std::int32_t tileSize) {
    const std::string_view kind = tile.kindName.Kind().Name();
    const auto found =
        std::ranges::find_if(kPlans, [kind](const PlanRow& row) { return row.kind == kind; });
    if (found == kPlans.end()) {
        return std::nullopt;
    }
    const PlanRow& row = *found;
    const Di3Point& slab = floor.size;
    // The wall of a reduced tile runs through the middle of the cell: half of the slabs fit before
    // it.
    const bool half = !tile.IsFullSize();
    PlatformPlan plan{};
    plan.columns = SlabCount(tileSize, slab.x) >> (half && row.halvesColumns ? 1 : 0);
    plan.rows = SlabCount(tileSize, slab.y) >> (half && row.halvesRows ? 1 : 0);
    plan.x = Evaluate(half ? row.xHalf : row.xFull, tile, slab, tileSize);
    plan.y = Evaluate(half ? row.yHalf : row.yFull, tile, slab, tileSize);
    plan.z = static_cast<float>(PlatformHeight(tileSize) - (tileSize - double{slab.z}) * 0.5);
    plan.stairs = PlanStairs(row, plan, slab);
    plan.beamRow = EdgeIndex(row.beamRow, plan.rows);
    plan.beamColumn = EdgeIndex(row.beamColumn, plan.columns);
    return plan;
}

} // namespace Tarnex
