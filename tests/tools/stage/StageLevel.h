// SPDX-License-Identifier: MIT
// A level as it stands on a stage: the shapes of its references, in the world.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/stage/StagePlan.h"

#include <vaultry/output/Cell.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tarnex::Test {

/// A reference with its shape.
struct StoodThing {
    std::string id;
    RefSort sort = RefSort::Other;
    bool isDoor = false;   ///< swings open
    bool leadsOut = false; ///< to another level
    Di3Point place;        ///< of its pivot [world units]
    Report::Shape shape;   ///< in the world
};

/// A level on a stage.
struct StageLevel {
    const Report::LevelMap* map = nullptr;
    Di3Point arrival; ///< on the floor [world units]
    std::vector<StoodThing> things;

    /// The cell at a place in the world, or null.
    const Report::MapCell* CellAt(float x, float y) const;
    /// The middle of a cell, at a height of 0. [world units]
    Di3Point MiddleOf(const Report::MapCell& cell) const;
};

/// The references of a cell on a stage; what the stage does not know has no shape.
std::vector<StoodThing> Stood(const Cell& cell, const Report::StagePlan& stage);

/// Faces by where they are on the map, so that those near a place are found.
class FaceMap {
public:
    /// `face` has to live as long as the map of faces.
    void Add(const Report::Face& face);

    /// Whether a look from `eye` ahead meets a face on the side that is drawn. `ahead` is as long
    /// as the look.
    bool Meets(const Di3Point& eye, const Di3Point& ahead) const;

private:
    std::map<std::pair<int, int>, std::vector<const Report::Face*>> squares;
};

/// The direction out of which a face is seen, as long as its sides say.
Di3Point NormalOf(const Report::Face& face);

/// Part of a level to stand on: columns of the map, with the heights at which a body has room.
/// Built from pieces alone, without what stands in the rooms; doors within a level are open.
class StageGround {
public:
    explicit StageGround(const StageLevel& level);

    /// One of the places where a body has room.
    struct Stand {
        int east = 0; ///< column from the north-western cell's middle
        int south = 0;
        float height = 0.0F; ///< [world units]
        auto operator<=>(const Stand&) const = default;
    };

    /// All that one walks to from a place on the floor.
    std::vector<Stand> Reached(const Di3Point& from) const;

    Di3Point PlaceOf(const Stand& stand) const;
    /// Columns in a cell's width.
    int Columns() const { return columns; }

private:
    struct Wall {
        float low;
        float high;
    };

    void AddFloor(const Report::Face& face);
    void AddWall(const Report::Face& face);
    template <typename Visitor>
    void ForEachColumn(const Report::Face& face, float around, const Visitor& visit) const;
    std::size_t IndexOf(int east, int south) const;
    const std::vector<float>& StandsIn(int east, int south) const;

    struct Column {
        std::vector<float> floors;
        std::vector<Wall> walls;
        std::optional<std::vector<float>> stands; // found when they are asked for
    };

    const StageLevel& level;
    int columns;
    float spacing;
    // With a cell's width around the map.
    int width;
    int height;
    mutable std::vector<Column> all;
};

} // namespace Tarnex::Test
