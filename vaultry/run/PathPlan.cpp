// SPDX-License-Identifier: MIT
#include <vaultry/run/PathPlan.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Numeric.h>
#include <vaultry/gen/ContentPlace.h>
#include <vaultry/gen/WorldPlace.h>
#include <vaultry/layout/LevelPlan.h>
#include <vaultry/run/ArrivalPlace.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tarnex {

namespace {

constexpr double kBodyRadius = 30.0;
constexpr double kBodyHeight = 128.0;
constexpr double kStep = 34.0;      // onto what is no higher one steps
constexpr std::int32_t kAround = 2; // cells in which a thing may be in the way
constexpr std::size_t kNowhere = ~std::size_t{0};

// A thing as it stands, turned; what has no size fills the usual circle.
struct Box {
    Di3Point middle;
    double halfX;
    double halfY;
    double halfZ;
    double sine; // of its turn, counter-clockwise
    double cosine;

    // Whether somebody who walks straight from one place to another would touch it.
    bool Bars(const Di3Point& from, const Di3Point& to) const {
        const double low = std::min(from.z, to.z) + kStep;
        const double high = std::max(from.z, to.z) + kBodyHeight;
        if (middle.z - halfZ >= high || middle.z + halfZ <= low) {
            return false;
        }
        const auto [fromX, fromY] = Inside(from);
        const auto [toX, toY] = Inside(to);
        double first = 0.0;
        double last = 1.0;
        return Clip(fromX, toX - fromX, halfX + kBodyRadius, first, last) &&
               Clip(fromY, toY - fromY, halfY + kBodyRadius, first, last);
    }

private:
    std::pair<double, double> Inside(const Di3Point& place) const {
        const double x = double{place.x} - middle.x;
        const double y = double{place.y} - middle.y;
        return {cosine * x + sine * y, cosine * y - sine * x};
    }

    // Leaves the part of a way that lies within `half` of the middle; false when there is none.
    static bool Clip(double from, double way, double half, double& first, double& last) {
        if (way == 0.0) {
            return std::abs(from) < half;
        }
        const double a = (-half - from) / way;
        const double b = (half - from) / way;
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
        return first < last;
    }
};

bool HasSize(const ContentItem& item) {
    return item.size.x > 0.0F && item.size.y > 0.0F;
}

Box BoxOf(const ContentItem& item, const Di3Point& place) {
    const double turn = -item.zRotate * kRadiansPerDegree;
    const bool sized = HasSize(item);
    return {place,
            sized ? item.size.x / 2.0 : Obstacle().reach,
            sized ? item.size.y / 2.0 : Obstacle().reach,
            item.size.z > 0.0F ? item.size.z / 2.0 : kBodyHeight,
            std::sin(turn),
            std::cos(turn)};
}

// Creatures go out of the way. What is called a rug may be a stool; one that has no size lies flat,
// and a tapestry without one hangs flat at the wall.
bool StandsInTheWay(const ContentItem& item) {
    const bool flat = item.IsKind(Content_Rug) || item.IsKind(Content_Tapestry);
    return !item.IsKind(Content_Creature) && (HasSize(item) || !flat);
}

// A cell of the plan as one walks it.
struct Stand {
    const GridElmt* elmt = nullptr; // null where nothing is
    float height = 0.0F;            // of its layout [cells]
    Di3Point place;                 // of the feet [world units]
    std::size_t region = kNowhere;  // what hangs together by the plan
    std::size_t piece = kNowhere;   // and what does when things stand there
    std::size_t number = kNowhere;  // in the list of points
    bool free = false;              // there is a place for somebody
};

class PathMaker {
public:
    explicit PathMaker(const FinishedLevel& finished)
        : level(finished), plan(PlanOf(finished.layout)), stands(plan.cells.size()),
          boxes(plan.cells.size()), tileSize(finished.tileSet.GetTileSize()) {
        const ContentList& creatures = level.config.contentMgr->GetCreatures();
        feet = FeetHeight(creatures.empty() ? nullptr : creatures.front().get(), tileSize);
    }

    std::vector<PathPoint> Make() {
        FindElements();
        AddBoxes(level.layout, Di3Point());
        for (const PlanCell& cell : plan.cells) {
            if (StandOf(cell).elmt != nullptr) {
                FindPlace(cell);
            }
        }
        KeepTheLargestPieces();
        return Points();
    }

private:
    std::size_t IndexOf(const PlanCell& cell) const {
        return static_cast<std::size_t>(&cell - plan.cells.data());
    }

    Stand& StandOf(const PlanCell& cell) { return stands[IndexOf(cell)]; }
    const Stand& StandOf(const PlanCell& cell) const { return stands[IndexOf(cell)]; }

    // Where several parts have tiles in one cell the first counts, as it does on the plan.
    void FindElements() {
        for (const LevelPart& part : PartsOf(level.layout)) {
            if (!part.sameFloor) {
                break;
            }
            const float height = part.layout == &level.layout ? 0.0F : part.layout->GetOffset().z;
            plan.UnderTiles(
                *part.layout, part.origin, [&](const PlanCell& cell, const GridElmt& elmt) {
                    Stand& stand = StandOf(cell);
                    if (stand.elmt == nullptr) {
                        stand.elmt = &elmt;
                        stand.height = height;
                    }
                });
        }
    }

    void AddBoxes(const Layout& layout, const Di3Point& offset) {
        ForEachTiled(layout, DiPos(), [&](const GridElmt& elmt, const DiPos& at) {
            for (const DiPtr<ContentItem>& item : elmt.contents) {
                if (StandsInTheWay(*item)) {
                    AddBox(BoxOf(*item, WorldPosition(at, offset, item->offset, tileSize)));
                }
            }
        });
        for (const DiPtr<Layout>& child : layout.GetChildren()) {
            const Di3Point& inside = child->GetOffset();
            AddBoxes(*child, {offset.x + inside.x, offset.y + inside.y, offset.z + inside.z});
        }
    }

    void AddBox(const Box& box) {
        const DiPos& size = level.layout.GetSize();
        const double col = std::floor(double{box.middle.x} / tileSize + 0.5);
        const double row = std::floor(-double{box.middle.y} / tileSize + 0.5);
        if (col >= 0.0 && col < size.x && row >= 0.0 && row < size.y) {
            const DiPos at(TruncToInt(col), TruncToInt(row), 0);
            boxes[IndexOf(plan.At(at))].push_back(box);
        }
    }

    // Things that are farther away than kAround cells are in nobody's way.
    bool IsClear(const PlanCell& cell, const Di3Point& from, const Di3Point& to) const {
        const DiPos& size = level.layout.GetSize();
        const DiPos at = plan.PlaceOf(cell);
        const std::int32_t lastRow = std::min(at.y + kAround, size.y - 1);
        const std::int32_t lastCol = std::min(at.x + kAround, size.x - 1);
        for (std::int32_t row = std::max(at.y - kAround, 0); row <= lastRow; ++row) {
            for (std::int32_t col = std::max(at.x - kAround, 0); col <= lastCol; ++col) {
                const auto& things = boxes[IndexOf(plan.At(DiPos(col, row, 0)))];
                if (std::ranges::any_of(things,
                                        [&](const Box& box) { return box.Bars(from, to); })) {
                    return false;
                }
            }
        }
        return true;
    }

    // The middle of the floor, where nothing else stands.
    Di3Point MiddleOf(const PlanCell& cell) const {
        const Stand& stand = StandOf(cell);
        ContentItem body;
        if (cell.tile == PlanTile::Hall) {
            // Where a creature would come to stand: a cave's corner is open on one side only.
            FitIntoElement(body, *stand.elmt, level.tileSet);
            body.offset.z += static_cast<float>(tileSize) / 2.0F;
        } else if (cell.tile == PlanTile::Stairs) {
            body.offset.z = ClimbOf(*stand.elmt) / 2.0F;
        } else if (cell.reduced) {
            // The wall runs through the middle of the cell; a doorway stands in one.
            for (const Side& side : Sides()) {
                const SideBits walls =
                    cell.doorway != 0 ? cell.doorway : static_cast<SideBits>(~cell.open);
                if ((walls & SideBit(side.dir)) != 0) {
                    body.offset.x -= static_cast<float>(side.step.x * tileSize) / 4.0F;
                    body.offset.y += static_cast<float>(side.step.y * tileSize) / 4.0F;
                }
            }
        }
        body.offset.z += static_cast<float>(feet);
        return WorldPosition(plan.PlaceOf(cell), {0.0F, 0.0F, stand.height}, body.offset, tileSize);
    }

    static float ClimbOf(const GridElmt& stairs) {
        const Tile& tile = *stairs.FirstTile();
        const bool down = tile.kindName.Kind().Name().starts_with("StairsDn");
        return static_cast<float>(down ? -tile.deltaZ : tile.deltaZ);
    }

    // The middle or, in a room where that is taken, a place beside it, away from the walls.
    void FindPlace(const PlanCell& cell) {
        Stand& stand = StandOf(cell);
        const Di3Point middle = MiddleOf(cell);
        const auto stepsTo = [&cell](TileDirT one, TileDirT other) {
            std::vector<int> steps = {0};
            // Of a reduced cell the middle of the floor is at its edge already.
            if (cell.reduced) {
                return steps;
            }
            for (const auto& [side, step] : {std::pair(one, 1), std::pair(other, -1)}) {
                if ((cell.open & SideBit(side)) != 0) {
                    steps.push_back(step);
                }
            }
            return steps;
        };
        const bool fixed = cell.tile != PlanTile::Room || cell.doorway != 0;
        for (const int x : stepsTo(DirE, DirW)) {
            for (const int y : stepsTo(DirN, DirS)) {
                stand.place = middle;
                stand.place.x += static_cast<float>(x * tileSize) / 4.0F;
                stand.place.y += static_cast<float>(y * tileSize) / 4.0F;
                stand.free = IsClear(cell, stand.place, stand.place);
                if (stand.free || fixed) {
                    return;
                }
            }
        }
    }

    // On platforms one stands too high to come down from.
    bool IsPlace(const PlanCell& cell, bool withThings) const {
        const Stand& stand = StandOf(cell);
        return stand.elmt != nullptr && stand.elmt->platforms.empty() &&
               (stand.free || !withThings);
    }

    bool AreJoined(const PlanCell& from, const PlanCell& to, bool withThings) const {
        const Stand& a = StandOf(from);
        const Stand& b = StandOf(to);
        const bool climbs = from.tile == PlanTile::Stairs || to.tile == PlanTile::Stairs;
        return IsPlace(from, withThings) && IsPlace(to, withThings) &&
               (a.height == b.height || climbs) &&
               (!withThings || (IsClear(from, a.place, b.place) && IsClear(to, a.place, b.place)));
    }

    // Gives the places that hang together one number, and returns how many there are of each.
    std::vector<std::size_t> NumberPieces(std::size_t Stand::*number, bool withThings) {
        std::vector<std::size_t> sizes;
        for (PlanCell& start : plan.cells) {
            if (!IsPlace(start, withThings) || StandOf(start).*number != kNowhere) {
                continue;
            }
            StandOf(start).*number = sizes.size();
            std::size_t& size = sizes.emplace_back(1);
            Walk(plan,
                 std::vector<PlanCell*>{&start},
                 [&](const PlanCell& from, const PlanCell& to, TileDirT) {
                     std::size_t& known = StandOf(to).*number;
                     if (known != kNowhere || !AreJoined(from, to, withThings)) {
                         return false;
                     }
                     known = sizes.size() - 1;
                     ++size;
                     return true;
                 });
        }
        return sizes;
    }

    void KeepTheLargestPieces() {
        const std::vector<std::size_t> sizes = NumberPieces(&Stand::piece, true);
        std::vector<std::size_t> largest(NumberPieces(&Stand::region, false).size(), kNowhere);
        for (const Stand& stand : stands) {
            if (stand.piece != kNowhere && (largest[stand.region] == kNowhere ||
                                            sizes[stand.piece] > sizes[largest[stand.region]])) {
                largest[stand.region] = stand.piece;
            }
        }
        for (Stand& stand : stands) {
            stand.free = stand.piece != kNowhere && largest[stand.region] == stand.piece;
        }
    }

    // From each start in all directions at once: where there are too many, those that are left out
    // are at the edge.
    std::vector<PathPoint> Points() {
        std::vector<const PlanCell*> order;
        const auto add = [&](const PlanCell& cell) {
            Stand& stand = StandOf(cell);
            if (stand.free && stand.number == kNowhere && order.size() < kMostPathPoints) {
                stand.number = order.size();
                order.push_back(&cell);
            }
        };
        std::size_t done = 0;
        for (const PlanCell& start : plan.cells) {
            add(start);
            for (; done < order.size(); ++done) {
                ForEachJoined(*order[done], add);
            }
        }
        std::vector<PathPoint> points;
        for (const PlanCell* cell : order) {
            const Di3Point& place = StandOf(*cell).place;
            PathPoint& point = points.emplace_back(PathPoint{TruncToInt(std::round(place.x)),
                                                             TruncToInt(std::round(place.y)),
                                                             TruncToInt(std::round(place.z)),
                                                             {}});
            ForEachJoined(*cell, [&](const PlanCell& to) {
                if (const std::size_t number = StandOf(to).number; number != kNowhere) {
                    point.ways.push_back(static_cast<std::uint32_t>(number));
                }
            });
        }
        return points;
    }

    template <typename Visitor>
    void ForEachJoined(const PlanCell& cell, const Visitor& visit) const {
        for (const TileDirT side : kSides) {
            if ((cell.ways & SideBit(side)) == 0) {
                continue;
            }
            const PlanCell& to = *plan.Next(cell, side);
            if (AreJoined(cell, to, true)) {
                visit(to);
            }
        }
    }

    const FinishedLevel& level;
    LevelPlan plan;
    std::vector<Stand> stands;           // of each cell of the plan
    std::vector<std::vector<Box>> boxes; // of the things whose middle is in each
    std::int32_t tileSize;
    double feet = 0.0; // above the middle of a cell
};

} // namespace

std::vector<PathPoint> PathPointsOf(const FinishedLevel& level) {
    return PathMaker(level).Make();
}

} // namespace Tarnex
