// SPDX-License-Identifier: MIT
#include <vaultry/gen/HallStep.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Numeric.h>

#include <array>

namespace Tarnex {

namespace {

constexpr std::uint32_t kUndoesCorner = 4; // as many failures in a row undo a corner

struct HallKinds {
    TileKind northSouth = TileKind::Of(Tile_HallNS);
    TileKind eastWest = TileKind::Of(Tile_HallEW);
    TileKind fourWay = TileKind::Of(Tile_Hall4Way);
    // By whether the closed sides are the northern and the western one.
    std::array<std::array<TileKind, 2>, 2> corners = {{
        {TileKind::Of(Tile_HallCornerSE), TileKind::Of(Tile_HallCornerSW)},
        {TileKind::Of(Tile_HallCornerNE), TileKind::Of(Tile_HallCornerNW)},
    }};
};

const HallKinds& Kinds() {
    static const HallKinds kinds;
    return kinds;
}

// A step of (0, 0) counts as vertical.
bool StepsVertically(const DiDirection& way) {
    return way.stepX == 0;
}

HallChoice Blocked(CvtAction action) {
    return {TileKind(), {}, action};
}

HallChoice InPlace(TileKind tile, CvtAction action) {
    return {tile, {}, action};
}

// By the distance, not by the step: a doorway is left straight ahead even where the way would turn.
HallChoice Straight(bool vertical, const DiDirection& wanted, CvtAction action) {
    const std::int32_t step = SignOf(vertical ? wanted.distY : wanted.distX);
    if (step == 0) {
        return Blocked(action);
    }
    return vertical ? HallChoice{Kinds().northSouth, {0, step, 0}, action}
                    : HallChoice{Kinds().eastWest, {step, 0, 0}, action};
}

// A corner is closed ahead of where the hall came from and behind where it goes: so it stays open
// towards both.
HallChoice Turn(bool vertical, const DiDirection& wanted, const DiPos& previous, CvtAction action) {
    const bool closedNorth = vertical ? previous.y < 0 : wanted.stepY > 0;
    const bool closedWest = vertical ? wanted.stepX > 0 : previous.x < 0;
    return InPlace(Kinds().corners[closedNorth ? 1 : 0][closedWest ? 1 : 0], action);
}

template <bool vertical>
HallChoice LeaveStraight(const DiDirection& wanted, const DiPos& previous, CvtAction action) {
    // A piece that must stay as it is can only be left straight on.
    if (StepsVertically(wanted) == vertical || action == CvtNone) {
        return Straight(vertical, wanted, action);
    }
    // The step itself follows, as one from a junction.
    if (action == CvtFourWay) {
        return InPlace(Kinds().fourWay, action);
    }
    // A zero step counts as vertical, and there is nowhere to turn to.
    if (wanted.stepX == 0 && wanted.stepY == 0) {
        return Blocked(action);
    }
    return Turn(vertical, wanted, previous, action);
}

// Only an open side lets the hall out; until it has failed a few times it hopes for another way.
HallChoice LeaveCorner(TileDirT corner, const DiDirection& wanted, CvtAction action) {
    struct Exit {
        DiPos step;
        std::array<TileDirT, 2> openCorners; // the corners that are open on that side
    };
    // A corner is named by its closed sides.
    static constexpr std::array<Exit, 4> kExits = {{
        {{-1, 0, 0}, {DirNE, DirSE}},
        {{1, 0, 0}, {DirNW, DirSW}},
        {{0, -1, 0}, {DirSW, DirSE}},
        {{0, 1, 0}, {DirNW, DirNE}},
    }};
    for (const Exit& exit : kExits) {
        const bool isWanted = wanted.stepX == exit.step.x && wanted.stepY == exit.step.y;
        const bool isOpen = exit.openCorners[0] == corner || exit.openCorners[1] == corner;
        if (isWanted && isOpen) {
            const HallKinds& kinds = Kinds();
            return {exit.step.x != 0 ? kinds.eastWest : kinds.northSouth, exit.step, action};
        }
    }
    return Blocked(action);
}

// Back to the straight piece that it was, so that the hall may turn elsewhere.
HallChoice UndoCorner(const DiPos& previous, CvtAction action) {
    const HallKinds& kinds = Kinds();
    // What it was nobody knows: the walk began here.
    if (previous.isZero()) {
        return InPlace(kinds.fourWay, CvtFourWay);
    }
    return InPlace(previous.y != 0 ? kinds.northSouth : kinds.eastWest, action);
}

// All sides of a junction are open.
HallChoice AlongStep(const DiDirection& wanted, CvtAction action) {
    const HallKinds& kinds = Kinds();
    // Without a step the junction itself is replaced by a straight piece.
    return {StepsVertically(wanted) ? kinds.northSouth : kinds.eastWest,
            {wanted.stepX, wanted.stepY, 0},
            action};
}

} // namespace

void GetBlockedDir(DiDirection& way) {
    if (StepsVertically(way)) {
        // No distance to cover goes west, or north below: aside is aside.
        way.stepX = way.distX < 1 ? -1 : 1;
        way.stepY = 0;
    } else {
        way.stepX = 0;
        way.stepY = way.distY < 1 ? -1 : 1;
    }
}

bool GoesStraightOn(TileDirT current, const DiDirection& wanted) {
    return StepsVertically(wanted) ? current == DirN || current == DirS || current == DirNS
                                   : current == DirE || current == DirW || current == DirEW;
}

HallChoice ChooseStep(TileDirT current,
                      const DiDirection& wanted,
                      const DiPos& previous,
                      CvtAction action,
                      std::uint32_t blocked) {
    switch (current) {
    case DirN:
    case DirS:
    case DirNS:
        // Doorways and ends are left as straight pieces of their axis are.
        return LeaveStraight<true>(wanted, previous, action);
    case DirE:
    case DirW:
    case DirEW:
        return LeaveStraight<false>(wanted, previous, action);
    case DirNW:
    case DirNE:
    case DirSW:
    case DirSE:
        return blocked < kUndoesCorner ? LeaveCorner(current, wanted, action)
                                       : UndoCorner(previous, action);
    case DirAll:
        return AlongStep(wanted, action);
    case DirNone:
        // Doors in corners, stairs: nobody knows where they let one out.
        break;
    }
    return Blocked(action);
}

} // namespace Tarnex
