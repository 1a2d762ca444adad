// SPDX-License-Identifier: MIT
#include "tools/stage/StagePlan.h"

#include "tools/check/ConfigTree.h"
#include "tools/plugins/PluginIndex.h"
#include "tools/stage/CellShape.h"
#include "tools/text/Words.h"

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <tuple>
#include <utility>

namespace Tarnex::Report {

namespace {

float Real(const ConfigElement& element, std::string_view name) {
    return static_cast<float>(RealOf(element, name));
}

Di3Point OffsetOf(const ConfigElement& element) {
    return {Real(element, Attrib_OffsetX),
            Real(element, Attrib_OffsetY),
            Real(element, Attrib_OffsetZ)};
}

Frame FrameOf(const ConfigElement& element) {
    return {WholeOf(element, Attrib_ZRotate), OffsetOf(element)};
}

using Corner = std::tuple<float, float, float>;
using Outline = std::array<Corner, 4>;

// A shape apart from its colours and the order in which it was put together.
std::vector<Outline> OutlinesOf(const Shape& shape) {
    std::vector<Outline> outlines;
    for (const Face& face : shape) {
        Outline& outline = outlines.emplace_back();
        std::ranges::transform(
            face.corners, outline.begin(), [](const Di3Point& p) { return Corner(p.x, p.y, p.z); });
        std::ranges::sort(outline);
    }
    std::ranges::sort(outlines);
    return outlines;
}

Shape Shrunk(Shape shape, float scale) {
    for (Face& face : shape) {
        for (Di3Point& corner : face.corners) {
            corner = {corner.x / scale, corner.y / scale, corner.z / scale};
        }
    }
    return shape;
}

// What nobody can shape is a box.
Shape UnknownShape() {
    constexpr float kHalf = 32.0F;
    Shape shape;
    AddBox(shape, Surface::Unknown, {-kHalf, -kHalf, -kHalf}, {kHalf, kHalf, kHalf});
    return shape;
}

Shape CreatureShape() {
    Shape shape;
    AddBox(shape, Surface::Creature, {-22, -30, 2}, {22, 30, 90});
    AddBox(shape, Surface::Creature, {-8, 30, 60}, {8, 44, 80}); // it looks north
    return shape;
}

// A box around its middle.
Shape BoxAround(Surface surface, const Di3Point& middle, const Di3Point& size) {
    const Di3Point half{size.x / 2.0F, size.y / 2.0F, size.z / 2.0F};
    Di3Point low = middle;
    low -= half;
    Shape shape;
    AddBox(shape, surface, low, middle + half);
    return shape;
}

// The elements of content that stand somewhere, and what they look like.
struct ThingRow {
    std::string_view element;
    StandInSort sort;
    Surface surface;
};

constexpr std::array<ThingRow, 4> kThings = {{
    {Content_Container, StandInSort::Container, Surface::Chest},
    {Content_Furniture, StandInSort::Static, Surface::Furniture},
    {Content_Rug, StandInSort::Static, Surface::Cloth},
    {Content_Tapestry, StandInSort::Static, Surface::Cloth},
}};

// How identifiers of the game's lists are spelt.
bool IsListOfCreatures(std::string_view id) {
    return ToUpper(id).find("_LEV") != std::string::npos;
}

bool IsListOfItems(std::string_view id) {
    constexpr std::array<std::string_view, 4> kStarts = {"L_N_", "L_M_", "L_B_", "RANDOM"};
    const std::string name = ToUpper(id);
    return std::ranges::any_of(kStarts,
                               [&name](std::string_view start) { return name.starts_with(start); });
}

class Planner {
public:
    void Add(const StageSource& newSource) {
        source = newSource.name;
        const ConfigTree tree(newSource.record);
        for (const ConfigElement* tileSet : tree.OfClass(ElementClass::TileSet)) {
            for (const ConfigElement* tile : tree.Inside(*tileSet)) {
                AddTile(*tileSet, *tile);
            }
        }
        for (const ConfigElement* piece : tree.OfClass(ElementClass::PlatformTile)) {
            AddPlatformPiece(*piece);
        }
        const float lift = LiftOf(tree);
        for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
            AddContent(*content, lift);
        }
    }

    StagePlan Finish() {
        AddAlways("NorthMarker", StandInSort::Static, {});
        AddAlways("ex_cave_door_01", StandInSort::Door, FindPiece("ex_cave_door_01")->shape);
        return std::move(plan);
    }

private:
    void AddAlways(const char* id, StandInSort sort, const Shape& shape) {
        StandIn standIn;
        standIn.id = id;
        standIn.sort = sort;
        standIn.shape = shape;
        standIn.known = Known::Guessed;
        Put(std::move(standIn));
    }

    void Put(StandIn standIn) {
        if (standIn.id.empty()) {
            return;
        }
        standIn.name = standIn.name.empty() ? standIn.id : standIn.name;
        standIn.use += " (" + source + ')';
        const auto [place, isNew] = plan.standIns.try_emplace(ToUpper(standIn.id), standIn);
        const StandIn& first = place->second;
        if (isNew || standIn.shape.empty() || first.shape.empty() || standIn.vague || first.vague ||
            OutlinesOf(first.shape) == OutlinesOf(standIn.shape)) {
            return;
        }
        plan.remarks.push_back(Quoted(standIn.id) + " needs two shapes, as " + first.use +
                               " and as " + standIn.use + "; it has the first");
    }

    void AddTile(const ConfigElement& tileSet, const ConfigElement& tile) {
        StandIn standIn;
        standIn.id = tile.firstText;
        standIn.use = Shown(tile.name) + " of " + Quoted(AttributeText(tileSet, Tile_TsName));
        const Piece* const piece = FindPiece(standIn.id);
        const TileKind kind = TileKind::Of(tile.name);
        const bool isDoor = IsAnyOf(tile.name, {Tile_nDoor, Tile_sDoor, Tile_eDoor, Tile_wDoor}) ||
                            (!kind.IsKnown() && IsDoorId(standIn.id));
        standIn.sort = isDoor ? StandInSort::Door : StandInSort::Static;
        if (piece != nullptr) {
            standIn.shape = piece->shape;
            standIn.known = piece->known;
        } else {
            standIn.shape = ShapedTile(tileSet, tile, standIn);
        }
        Put(std::move(standIn));
    }

    Shape ShapedTile(const ConfigElement& tileSet, const ConfigElement& tile, StandIn& standIn) {
        CellKind cell;
        cell.kind = tile.name;
        cell.size = static_cast<float>(WholeOf(tileSet, Tile_TsSize));
        cell.climb = static_cast<float>(WholeOf(tile, Attrib_DeltaZ));
        cell.area = AttributeText(tile, Attrib_Area).empty() ? AreaFull : AreaHalf;
        const std::optional<Shape> shape = CellShape(cell);
        if (!shape) {
            plan.remarks.push_back("nobody knows what " + Quoted(standIn.id) + " looks like, " +
                                   standIn.use + "; it is a box");
            return UnknownShape();
        }
        const float scale = Real(tile, Attrib_Scale);
        return Shrunk(TakenOutOf(FrameOf(tile), *shape), scale > 0.0F ? scale : 1.0F);
    }

    void AddPlatformPiece(const ConfigElement& piece) {
        StandIn standIn;
        standIn.id = AttributeText(piece, Attrib_UniqueName);
        standIn.use = Shown(piece.name) + " of a platform";
        standIn.shape = TakenOutOf({WholeOf(piece, Attrib_ZRotate), {}},
                                   BoxAround(Surface::Plank, {}, SizeOf(piece)));
        Measure(standIn);
        Put(std::move(standIn));
    }

    static Di3Point SizeOf(const ConfigElement& element) {
        constexpr float kUsual = 40.0F; // where none is given
        const auto size = [&element](std::string_view name, float otherwise) {
            const float given = std::abs(Real(element, name));
            return given > 0.0F ? given : otherwise;
        };
        return {size(Attrib_SizeX, kUsual),
                size(Attrib_SizeY, kUsual),
                size(Attrib_SizeZ, kUsual / 2.0F)};
    }

    // Measures that are known count more than those of a configuration.
    static void Measure(StandIn& standIn) {
        const Piece* const piece = FindPiece(standIn.id);
        if (piece == nullptr) {
            return;
        }
        const Surface surface = standIn.shape.front().surface;
        standIn.shape = piece->shape;
        standIn.known = piece->known;
        for (Face& face : standIn.shape) {
            face.surface = surface;
        }
    }

    // How much higher than usual the floors of a configuration lie, and things with them: by where
    // it puts the first measured room.
    static float LiftOf(const ConfigTree& tree) {
        for (const char* const type : {"Room", "Cave"}) {
            for (const ConfigElement* tileSet : tree.OfClass(ElementClass::TileSet)) {
                for (const ConfigElement* tile : tree.Inside(*tileSet)) {
                    const Piece* const piece = FindPiece(tile->firstText);
                    if (Is(*tile, Tile_Center) && piece != nullptr &&
                        EqualsNoCase(AttributeText(*tileSet, Tile_TsType), type)) {
                        return FloorOf(piece->shape) + Real(*tile, Attrib_OffsetZ) +
                               static_cast<float>(WholeOf(*tileSet, Tile_TsSize)) / 2.0F;
                    }
                }
            }
        }
        return 0.0F;
    }

    static float FloorOf(const Shape& shape) {
        float floor = shape.front().corners.front().z;
        for (const Face& face : shape) {
            for (const Di3Point& corner : face.corners) {
                floor = std::min(floor, corner.z);
            }
        }
        return floor;
    }

    void AddContent(const ConfigElement& content, float lift) {
        const auto thing = std::ranges::find_if(
            kThings, [&content](const ThingRow& row) { return Is(content, row.element); });
        StandIn standIn;
        standIn.id = AttributeText(content, Attrib_UniqueName);
        standIn.name = AttributeText(content, Attrib_FriendlyName);
        standIn.use = content.name;
        standIn.weight = Real(content, Attrib_Weight);
        standIn.value = WholeOf(content, Attrib_Value);
        if (thing != kThings.end()) {
            AddThing(std::move(standIn), *thing, content, lift);
        } else if (Is(content, Content_Creature)) {
            const bool isList = IsListOfCreatures(standIn.id);
            standIn.sort = isList ? StandInSort::Creatures : StandInSort::Creature;
            standIn.shape = isList ? Shape() : CreatureShape();
            Put(std::move(standIn));
        } else {
            standIn.sort = IsListOfItems(standIn.id) ? StandInSort::Items : StandInSort::Item;
            Put(std::move(standIn));
        }
    }

    void AddThing(StandIn standIn, const ThingRow& row, const ConfigElement& content, float lift) {
        const bool isLight = row.sort == StandInSort::Static && IsLightId(standIn.id);
        standIn.sort = isLight ? StandInSort::Light : row.sort;
        Di3Point middle = OffsetOf(content);
        int turn = WholeOf(content, Attrib_ZRotate);
        if (Is(content, Content_Rug)) {
            // Of what lies in a room they tell where and how it lies, not what it is.
            middle = {0.0F, 0.0F, middle.z};
            turn = 0;
        }
        middle.z -= lift;
        middle.negate();
        Di3Point size = SizeOf(content);
        standIn.vague = Real(content, Attrib_SizeX) == 0.0F;
        if (isLight && Real(content, Attrib_SizeZ) == 0.0F) {
            // Its pivot is the flame; what stands reaches down to the floor.
            const float low = Is(content, Content_Tapestry) ? -12.0F : middle.z;
            constexpr float kHigh = 12.0F;
            size = {16.0F, 16.0F, kHigh - low};
            middle = {0.0F, 0.0F, (kHigh + low) / 2.0F};
        }
        standIn.shape =
            TakenOutOf({turn, {}}, BoxAround(isLight ? Surface::Light : row.surface, middle, size));
        Measure(standIn);
        if (row.sort == StandInSort::Container) {
            standIn.model = AttributeText(content, Attrib_ModelFile);
        }
        Put(std::move(standIn));
    }

    StagePlan plan;
    std::string source;
};

} // namespace

StagePlan PlanStage(const std::vector<StageSource>& sources) {
    Planner planner;
    for (const StageSource& source : sources) {
        planner.Add(source);
    }
    return planner.Finish();
}

} // namespace Tarnex::Report
