// SPDX-License-Identifier: MIT
#include "tests/tools/stage/StageJudge.h"

#include <vaultry/foundation/Numeric.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <set>
#include <utility>

namespace Tarnex::Test {

namespace {

using Report::Face;
using Report::MapCell;

constexpr float kEyes = 118.0F;
constexpr int kHeadings = 16;
constexpr std::array<float, 3> kPitches = {-30.0F, 0.0F, 30.0F};
// Walls of the pieces are uneven: so deep a thing may stand in them.
constexpr float kInWall = 16.0F;
// So far from the middle of its doorway a leaf may hang.
constexpr float kBeside = 24.0F;
constexpr int kSwing = 90;
constexpr int kSwingStep = 10;
// The part of a leaf that may touch nothing: its hinge is in the frame.
constexpr float kLeafFrom = 0.3F;
constexpr float kLeafTo = 0.9F;

constexpr std::array<std::pair<TileDirT, const char*>, 4> kSideWords = {
    {{DirN, "north"}, {DirE, "east"}, {DirS, "south"}, {DirW, "west"}}};

Di3Point Between(const Di3Point& a, const Di3Point& b, float part) {
    return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part, a.z + (b.z - a.z) * part};
}

class Judge {
public:
    explicit Judge(const StageLevel& stageLevel) : level(stageLevel), ground(stageLevel) {
        for (const StoodThing& thing : level.things) {
            const bool isPiece = thing.sort == RefSort::Tile || thing.sort == RefSort::Door;
            for (const Face& face : thing.shape) {
                if (isPiece) {
                    shell.Add(face);
                }
                if (thing.isDoor) {
                    continue;
                }
                solid.Add(face);
                if (isPiece) {
                    walls.Add(face);
                }
            }
        }
    }

    std::vector<FaultAt> Judged() {
        stands = ground.Reached(level.arrival);
        for (const StageGround::Stand& stand : stands) {
            columns.emplace(stand.east, stand.south);
            const Di3Point place = ground.PlaceOf(stand);
            if (const MapCell* const cell = level.CellAt(place.x, place.y)) {
                const Di3Point middle = level.MiddleOf(*cell);
                const float distance = std::hypot(place.x - middle.x, place.y - middle.y);
                const auto [known, isNew] = nearest.try_emplace(cell, distance, place);
                if (distance < known->second.first) {
                    known->second = {distance, place};
                }
            }
        }
        for (const MapCell* cell : CellsToWalkTo()) {
            for (const auto& [side, word] : kSideWords) {
                JudgeSide(*cell, side, word);
            }
            LookAround(*cell);
        }
        for (const StoodThing& thing : level.things) {
            if (thing.sort == RefSort::Container || thing.sort == RefSort::Furniture) {
                JudgeThing(thing);
            } else if (thing.isDoor && !thing.leadsOut) {
                JudgeLeaf(thing);
            }
        }
        return std::move(faults);
    }

private:
    void Find(Fault fault, const std::string& what, const Di3Point& at) {
        faults.push_back({fault,
                          level.map->name + ": " + what + " at " +
                              std::to_string(static_cast<int>(at.x)) + ", " +
                              std::to_string(static_cast<int>(at.y))});
    }

    std::vector<const MapCell*> CellsToWalkTo() const {
        std::vector<const MapCell*> found;
        std::set<const MapCell*> seen;
        const auto add = [&](const MapCell* cell) {
            if (cell != nullptr && seen.insert(cell).second) {
                found.push_back(cell);
            }
        };
        add(level.CellAt(level.arrival.x, level.arrival.y));
        for (std::size_t i = 0; i < found.size(); ++i) {
            for (const auto& [side, word] : kSideWords) {
                if ((found[i]->ways & SideBit(side)) != 0) {
                    add(level.map->Next(*found[i], side));
                }
            }
        }
        return found;
    }

    // Somebody stands on the border, apart from its ends, and so far on either side of it.
    bool IsCrossed(const MapCell& cell, TileDirT side, int around) const {
        const int half = ground.Columns() / 2;
        const DiPos& step = Sides()[static_cast<std::size_t>(side)].step;
        const auto isStand = [&](int along, int across) {
            return columns.contains(
                {cell.place.x * ground.Columns() + step.x * (half + across) + along * step.y,
                 cell.place.y * ground.Columns() + step.y * (half + across) + along * step.x});
        };
        for (int along = 1 - half; along < half; ++along) {
            bool crossed = true;
            for (int across = -around; across <= around; ++across) {
                crossed = crossed && isStand(along, across);
            }
            if (crossed) {
                return true;
            }
        }
        return false;
    }

    static bool IsOut(const MapCell& cell, TileDirT side) {
        const SideBits out =
            cell.loose | cell.waysIn | (cell.teleport ? cell.doorway : SideBits{0});
        return (out & SideBit(side)) != 0;
    }

    void JudgeSide(const MapCell& cell, TileDirT side, const std::string& word) {
        const bool joined = (cell.ways & SideBit(side)) != 0;
        // What closes a tunnel stands beyond the border.
        const int around = joined ? 0 : ground.Columns() / 4;
        if (!IsOut(cell, side) && IsCrossed(cell, side, around) != joined) {
            Find(joined ? Fault::Way : Fault::Wall,
                 (joined ? "no way to the " : "no wall in the ") + word,
                 level.MiddleOf(cell));
        }
    }

    // From the place next to the middle of a cell.
    void LookAround(const MapCell& cell) {
        const auto place = nearest.find(&cell);
        if (place == nearest.end()) {
            return;
        }
        const Di3Point& best = place->second.second;
        const Di3Point eye{best.x, best.y, best.z + kEyes};
        const auto length =
            static_cast<float>((level.map->width + level.map->height) * level.map->tileSize);
        for (int heading = 0; heading < kHeadings; ++heading) {
            for (const float pitch : kPitches) {
                // Beside the corners, where faces only touch.
                const double turn = (heading + 0.37) * 360.0 / kHeadings * kRadiansPerDegree;
                const double down = static_cast<double>(pitch) * kRadiansPerDegree;
                const Di3Point ahead{static_cast<float>(std::sin(turn) * std::cos(down)) * length,
                                     static_cast<float>(std::cos(turn) * std::cos(down)) * length,
                                     static_cast<float>(-std::sin(down)) * length};
                if (!shell.Meets(eye, ahead) && !LeadsOut(eye, ahead, length)) {
                    Find(Fault::Hole,
                         "a hole is seen at " + std::to_string(heading * 360 / kHeadings) +
                             " degrees",
                         eye);
                    return;
                }
            }
        }
    }

    // Whether a look leaves the level by an opening that the program counts.
    bool LeadsOut(const Di3Point& eye, const Di3Point& ahead, float length) const {
        constexpr float kStride = 16.0F;
        const MapCell* from = nullptr;
        for (float way = 0.0F; way < length; way += kStride) {
            const Di3Point place = Between(eye, eye + ahead, way / length);
            const MapCell* const cell = level.CellAt(place.x, place.y);
            for (const auto& [side, word] : kSideWords) {
                if (from != nullptr && cell != from && IsOut(*from, side) &&
                    (cell == nullptr || level.map->Next(*from, side) == cell)) {
                    return true;
                }
            }
            from = cell;
        }
        return false;
    }

    static bool Crosses(const FaceMap& faces, const Di3Point& from, const Di3Point& to) {
        const auto way = [](const Di3Point& a, Di3Point b) { return b -= a; };
        return faces.Meets(from, way(from, to)) || faces.Meets(to, way(to, from));
    }

    void JudgeThing(const StoodThing& thing) {
        Di3Point low = thing.shape.empty() ? Di3Point() : thing.shape.front().corners.front();
        Di3Point high = low;
        for (const Face& face : thing.shape) {
            for (const Di3Point& corner : face.corners) {
                low = {std::min(low.x, corner.x),
                       std::min(low.y, corner.y),
                       std::min(low.z, corner.z)};
                high = {std::max(high.x, corner.x),
                        std::max(high.y, corner.y),
                        std::max(high.z, corner.z)};
            }
        }
        const Di3Point middle = Between(low, high, 0.5F);
        for (const Face& face : thing.shape) {
            for (const Di3Point& corner : face.corners) {
                const float length = std::hypot(corner.x - middle.x, corner.y - middle.y);
                const float part = std::max(0.0F, 1.0F - kInWall / std::max(length, 1.0F));
                const Di3Point inner = Between(middle, {corner.x, corner.y, middle.z}, part);
                if (Crosses(walls, middle, inner)) {
                    Find(Fault::Thing, thing.id + " stands in a wall", middle);
                    return;
                }
            }
        }
    }

    void JudgeLeaf(const StoodThing& leaf) {
        // The corner that is farthest from the hinge, at half the height.
        Di3Point edge = leaf.place;
        float low = std::numeric_limits<float>::max();
        float high = std::numeric_limits<float>::lowest();
        float most = 0.0F;
        for (const Face& face : leaf.shape) {
            for (const Di3Point& corner : face.corners) {
                const float length = std::hypot(corner.x - leaf.place.x, corner.y - leaf.place.y);
                low = std::min(low, corner.z);
                high = std::max(high, corner.z);
                if (length > most) {
                    most = length;
                    edge = corner;
                }
            }
        }
        const Di3Point hinge{leaf.place.x, leaf.place.y, (low + high) / 2.0F};
        if (!HangsInDoorway(Between(hinge, edge, 0.5F))) {
            Find(Fault::Leaf, leaf.id + " hangs beside its doorway", hinge);
            return;
        }
        for (int turn = kSwingStep; turn <= kSwing; turn += kSwingStep) {
            const double angle = turn * kRadiansPerDegree;
            const auto c = static_cast<float>(std::cos(angle));
            const auto s = static_cast<float>(std::sin(angle));
            const float east = edge.x - hinge.x;
            const float north = edge.y - hinge.y;
            const Di3Point end{
                hinge.x + east * c + north * s, hinge.y + north * c - east * s, hinge.z};
            if (Crosses(solid, Between(hinge, end, kLeafFrom), Between(hinge, end, kLeafTo))) {
                Find(Fault::Leaf, leaf.id + " swings through something", hinge);
                return;
            }
        }
    }

    bool HangsInDoorway(const Di3Point& middle) const {
        const float half = static_cast<float>(level.map->tileSize) / 2.0F;
        return std::ranges::any_of(level.map->cells, [&](const MapCell& cell) {
            return std::ranges::any_of(kSideWords, [&](const auto& entry) {
                const DiPos& step = Sides()[static_cast<std::size_t>(entry.first)].step;
                const Di3Point at = level.MiddleOf(cell);
                return (cell.doorway & SideBit(entry.first)) != 0 &&
                       std::hypot(at.x + static_cast<float>(step.x) * half - middle.x,
                                  at.y - static_cast<float>(step.y) * half - middle.y) < kBeside;
            });
        });
    }

    const StageLevel& level;
    StageGround ground;
    FaceMap shell; // what closes the level, doors among it
    FaceMap solid; // what a leaf must not touch
    FaceMap walls; // pieces without doors
    std::vector<StageGround::Stand> stands;
    std::set<std::pair<int, int>> columns; // of the stands
    // The stand of each cell that is nearest to its middle, and how far it is.
    std::map<const MapCell*, std::pair<float, Di3Point>> nearest;
    std::vector<FaultAt> faults;
};

} // namespace

std::vector<FaultAt> FaultsOf(const StageLevel& level) {
    return Judge(level).Judged();
}

} // namespace Tarnex::Test
