// SPDX-License-Identifier: MIT
// The kinds of tile and the two properties by which generation reasons about them.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex {

/// What a tile is for. The value 5 is never used. Of a cell the type of its first tile counts,
/// whatever else stands there.
enum TileType : std::int32_t {
    TileCenter = 0,  ///< floor centre
    TileCorner = 1,  ///< room corner
    TileDoorway = 2, ///< doorway, door jamb or door
    TileHall = 3,    ///< hall piece: straight, corner, four-way
    TileHallEnd = 4, ///< dead end of a hall
    TileWall = 6,    ///< straight wall
    TileNone = 7,    ///< no tile, or one of no known type
};

/// The facing of a tile. A wall, doorway, jamb or door faces the side of the room it belongs to; a
/// room corner or hall corner is named by its closed sides; a hall end by its closed side. The
/// first four are the sides of a cell, in the order in which tables of sides are kept. The eight
/// doorways in corners have no facing.
enum TileDirT : std::int32_t {
    DirN = 0,     ///< north
    DirS = 1,     ///< south
    DirE = 2,     ///< east
    DirW = 3,     ///< west
    DirNW = 4,    ///< north and west
    DirNE = 5,    ///< north and east
    DirSW = 6,    ///< south and west
    DirSE = 7,    ///< south and east
    DirNS = 8,    ///< along the north-south axis
    DirEW = 9,    ///< along the east-west axis
    DirAll = 10,  ///< all sides: centres, four-way halls
    DirNone = 11, ///< no tile, or one of no known facing
};

/// A known kind of tile, or none. Cheap to copy and compare; names are looked up once.
///
/// @code
/// const Tarnex::TileKind kind = Tarnex::TileKind::Of("walln"); // case does not matter
/// if (kind.Type() == Tarnex::TileWall && kind.Dir() == Tarnex::DirN) {
///     std::cout << kind.Name(); // WallN
/// }
/// @endcode
class VAULTRY_API TileKind {
public:
    /// The number of known kinds.
    static constexpr std::size_t kCount = 59;

    /// No known kind.
    constexpr TileKind() = default;

    /// The kind of that name, without regard to case; none when there is no such kind. Costs a
    /// search; keep the answer where the same name comes often.
    static TileKind Of(std::string_view name);
    /// The known kind at that place among all kinds, below kCount. To go through all of them, in
    /// the order of the vocabulary. Not checked.
    static TileKind At(std::size_t index);

    /// False for none.
    constexpr bool IsKnown() const { return row >= 0; }
    /// The place of a known kind among all kinds, 0 to kCount - 1.
    constexpr std::size_t Index() const { return static_cast<std::size_t>(row); }

    /// The name of a known kind as the vocabulary spells it; empty for none. It lives as long as
    /// the program and ends with a zero byte.
    std::string_view Name() const;
    /// DirNone for none and for kinds without a facing.
    constexpr TileDirT Dir() const { return static_cast<TileDirT>(dir); }
    /// TileNone for none and for kinds without a type (stairs).
    constexpr TileType Type() const { return static_cast<TileType>(type); }

    /// Whether both are the same kind, or both none.
    constexpr bool operator==(const TileKind&) const = default;

private:
    // Facing and type are copied from the kind's row: halls ask for them at every step.
    std::int8_t row = -1;
    std::int8_t dir = DirNone;
    std::int8_t type = TileNone;
};

/// The names of all known kinds, as the vocabulary spells them. In the order of TileKind::At; for a
/// front end that offers them for choice.
VAULTRY_API std::vector<std::string> TileKindNames();

/// The name of a tile as written, with the kind that it stands for. Behaves as the text. A tile set
/// may hold tiles of names that are no kinds: they are placed where a template asks for them, and
/// nothing else reasons about them.
class VAULTRY_API TileKindName {
public:
    TileKindName() = default;
    /// A name as written; a kind that is not known is no error.
    /// @{
    TileKindName(std::string name) : text(std::move(name)), kind(TileKind::Of(text)) {}
    TileKindName(std::string_view name) : TileKindName(std::string(name)) {}
    TileKindName(const char* name) : TileKindName(std::string(name)) {}
    /// @}

    /// The name as it was written.
    const std::string& Text() const { return text; }
    /// The same as a C string.
    const char* c_str() const { return text.c_str(); }
    /// Whether there is no name.
    bool empty() const { return text.empty(); }
    /// The kind that the name stands for, or none.
    TileKind Kind() const { return kind; }

    /// Equality of the texts, case included; kinds are compared by Kind.
    friend bool operator==(const TileKindName& a, std::string_view b) { return a.text == b; }

private:
    std::string text;
    TileKind kind;
};

} // namespace Tarnex
