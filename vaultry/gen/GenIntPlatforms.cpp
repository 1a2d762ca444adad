// SPDX-License-Identifier: MIT
// Platforms: raised floors along the walls of fixed cave interiors.
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Numeric.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenIntBase.h>
#include <vaultry/gen/Limits.h>
#include <vaultry/gen/PlatformPlan.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace Tarnex {

namespace {

// Up to the edge of the platform, its top level with the slabs.
void PlaceStairs(GridElmt& elmt,
                 const Platform& platform,
                 const StairsPlan& plan,
                 std::int32_t tileSize) {
    const DiPtr<PlatformTile> stairs = platform.GetCopyOf(plan.kind);
    if (!stairs) {
        return;
    }
    // Along the other axis the author's offset stays.
    stairs->offset.*plan.axis = plan.place;
    // First down to the floor of the cell, then so far that the top step is at the platform's
    // height.
    Add(stairs->offset.z, -((tileSize - double{stairs->size.z}) * 0.5));
    Add(stairs->offset.z, -(double{stairs->size.z} - elmt.platformHeight));
    elmt.platforms.push_back(stairs);
}

// A slab's place in the grid and in the element.
struct Slab {
    std::int32_t row;
    std::int32_t column;
    float x;
    float y;
};

// Moves a beam from the middle of a slab to its outer edge.
void MoveOutward(float& place, bool toLow, double slabSize, double beamSize) {
    const double way = (slabSize - beamSize) * 0.5;
    Add(place, toLow ? -way : way);
}

// False when the platform has no beam.
bool PlaceBeam(GridElmt& elmt, const Platform& platform, const Slab& slab, const Di3Point& size) {
    const DiPtr<PlatformTile> beam = platform.GetCopyOf(Platform_Beam);
    if (!beam) {
        return false;
    }
    Add(beam->offset.x, slab.x);
    MoveOutward(beam->offset.x, slab.column == 0, size.x, beam->size.x);
    Add(beam->offset.y, slab.y);
    MoveOutward(beam->offset.y, slab.row == 0, size.y, beam->size.y);
    Add(beam->offset.z, elmt.FirstTile()->offset.z * 0.5);
    elmt.platforms.push_back(beam);
    return true;
}

// Adds one slab and its beams; a slab at a corner of two edges may carry two.
bool PlaceSlab(GridElmt& elmt,
               const Platform& platform,
               const PlatformPlan& plan,
               const PlatformTile& floor,
               const Slab& slab) {
    const auto piece = MakeDi<PlatformTile>(floor);
    Add(piece->offset.x, slab.x);
    Add(piece->offset.y, slab.y);
    Add(piece->offset.z, plan.z);
    // The slab before its beams.
    elmt.platforms.push_back(piece);

    // A beam stands at either end of its row or column.
    const bool atRowEnd = slab.column == 0 || slab.column == plan.columns - 1;
    const bool atColumnEnd = slab.row == 0 || slab.row == plan.rows - 1;
    // A platform without a beam breaks off its row at the first edge that asks for one.
    const std::array<bool, 2> beams = {atRowEnd && slab.row == plan.beamRow,
                                       atColumnEnd && slab.column == plan.beamColumn};
    for (const bool wanted : beams) {
        if (wanted && !PlaceBeam(elmt, platform, slab, floor.size)) {
            return false;
        }
    }
    return true;
}

void PlaceRow(GridElmt& elmt,
              const Platform& platform,
              const PlatformPlan& plan,
              const PlatformTile& floor,
              Slab slab,
              std::int64_t& left) {
    slab.x = plan.x;
    for (slab.column = 0; slab.column < plan.columns && left > 0; ++slab.column) {
        --left;
        if (!PlaceSlab(elmt, platform, plan, floor, slab)) {
            return;
        }
        // A running sum, rounded slab by slab.
        Add(slab.x, floor.size.x);
    }
}

// The slabs of the plan, row by row, up to `most` of them.
void PlaceFloor(GridElmt& elmt,
                const Platform& platform,
                const PlatformPlan& plan,
                const PlatformTile& floor,
                std::int64_t most) {
    Slab slab{0, 0, 0.0F, plan.y};
    for (; slab.row < plan.rows && most > 0; ++slab.row) {
        PlaceRow(elmt, platform, plan, floor, slab, most);
        Add(slab.y, floor.size.y);
    }
}

std::int64_t SlabCount(const PlatformPlan& plan) {
    // Two negative counts must not make a positive one.
    const bool none = plan.columns <= 0 || plan.rows <= 0;
    return none ? 0 : std::int64_t{plan.columns} * plan.rows;
}

} // namespace

void GenIntBase::AddPlatforms(Layout& layout) {
    const auto& platforms = config->platformList;
    if (platforms.empty()) {
        return;
    }
    // One kit for the whole cell.
    // Drawn even from a single one.
    const Platform& platform = *DrawOne(platforms);
    SortedElmts sorted;
    SortLayout(sorted, layout);
    std::int64_t left = kMaxPlatformPieces;
    // Along straight walls only.
    for (GridElmt* wall : sorted.walls) {
        RaisePlatform(*wall, platform, left);
    }
    // Slabs the size of a coin would bury the game in references.
    if (left < 0) {
        ReportProblem({ProblemKind::PlatformsTooFine,
                       {platform.GetName(), std::to_string(kMaxPlatformPieces)}});
    }
}

void GenIntBase::AddPlatform(GridElmt& elmt, const Platform& platform) const {
    std::int64_t left = kMaxPlatformPieces;
    RaisePlatform(elmt, platform, left);
}

void GenIntBase::RaisePlatform(GridElmt& elmt, const Platform& platform, std::int64_t& left) const {
    // A kit without a floor raises nothing, not even the contents.
    const DiPtr<PlatformTile> floor = platform.Get(Platform_Floor);
    if (!floor) {
        return;
    }
    const Tile& first = *elmt.FirstTile();
    const std::int32_t tileSize = tileSet->GetTileSize();
    // Even if the plan then fails: content of this element is lifted all the same.
    elmt.platformHeight = PlatformHeight(tileSize);
    const auto plan = PlanPlatform(first, *floor, tileSize);
    if (!plan) {
        ReportProblem({ProblemKind::UnknownPlatform, {first.kindName.c_str()}});
        return;
    }
    // Before the slabs: the order of the references.
    if (plan->stairs) {
        PlaceStairs(elmt, platform, *plan->stairs, tileSize);
    }
    if (SlabCount(*plan) > kMaxFloorPieces) {
        ReportProblem({ProblemKind::PlatformTooFine,
                       {platform.GetName(),
                        std::to_string(plan->columns),
                        std::to_string(plan->rows),
                        std::to_string(kMaxFloorPieces)}});
    }
    const std::int64_t wanted = std::min(SlabCount(*plan), kMaxFloorPieces);
    const std::int64_t slabs = std::clamp<std::int64_t>(left, 0, wanted);
    // Counted as wanted, not as made, so that going over the limit can be told afterwards.
    left -= wanted;
    info.meter.Step(slabs);
    info.meter.TakeMemory(static_cast<std::uint64_t>(slabs) *
                          (sizeof(PlatformTile) + floor->id.size()));
    PlaceFloor(elmt, platform, *plan, *floor, slabs);
}

} // namespace Tarnex
