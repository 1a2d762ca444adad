// SPDX-License-Identifier: MIT
// A named collection of tiles that share one cell size.
#pragma once

#include <vaultry/catalogue/Tile.h>
#include <vaultry/foundation/DiPtr.h>

#include <array>
#include <map>
#include <string>

namespace Tarnex {

/// The tiles of one architecture, one per kind name, looked up without regard to case. A tile that
/// faces north brings those of the other sides with it.
///
/// A set may be made in memory too, as a configuration makes it:
///
/// @code
/// auto set = MakeDi<Tarnex::TileSet>();
/// set->SetName("Crypt");
/// set->SetType("Room");
/// set->SetTileSize(256);
/// Tarnex::Tile wall;
/// wall.id = "in_crypt_wall";
/// wall.kindName = "WallN";
/// set->Set(wall); // brings WallS, WallE and WallW with it
/// manager.config.roomTileSets.push_back(set);
/// @endcode
///
/// Once a run has begun, sets are only read, until it has ended.
class VAULTRY_API TileSet : public DiRcObject {
public:
    TileSet() = default;
    TileSet(const TileSet&) = delete;
    TileSet& operator=(const TileSet&) = delete;

    /// The name by which the set is chosen.
    const std::string& GetName() const { return name; }
    /// Replaces the name; not null.
    void SetName(const char* newName) { name = newName; }

    /// "Room" or "Cave".
    const std::string& GetType() const { return type; }
    /// Replaces the type; not null. Lists that hold the set are not changed.
    void SetType(const char* newType) { type = newType; }
    /// Whether the type is "Cave", without regard to case. Caves take cave layouts for their rooms,
    /// are spread wider, and have nothing in corners.
    bool IsCave() const;

    /// Edge of one grid cell. [world units] 256 until it is set.
    std::int32_t GetTileSize() const { return tileSize; }
    /// Replaces the size, unchecked; real tile sets have 128 to 1024. [world units] With 0 the
    /// cells of a level lie one upon the other, a negative size mirrors it.
    void SetTileSize(std::int32_t size) { tileSize = size; }

    /// How far content stays away from a wall. [world units] 0 until it is set.
    float GetWallThickness() const { return wallThickness; }
    /// Replaces the thickness, unchecked: with a negative one content is moved into the wall.
    /// [world units]
    void SetWallThickness(float thickness) { wallThickness = thickness; }

    /// The tile filed under that name, or null. The tile is the set's own, not a copy; the
    /// reference holds until the set is changed or goes.
    const DiPtr<Tile>& Get(const TileKindName& kindName) const;
    /// The tile of a known kind, or null. Faster than by name; null for none, too.
    const DiPtr<Tile>& Get(TileKind kind) const;

    /// Files a copy of the tile and of every tile that follows from its kind. A name that is taken
    /// already is an error under "TileSet": the filed tile takes the new fields, so that handles
    /// given out before see them, and nothing is derived. The last writer wins. Derived tiles are
    /// turned copies: their rotation stays within 0 to 359 when that of the source is, and the
    /// offset is turned too, but for the doorways in corners. The stairs that climb bring those
    /// that descend, lower by deltaZ.
    void Set(const Tile& tile);

    /// True when the set has doorways for both sides of a corner. As the others follow from these
    /// two, it then has all eight.
    bool AllowCornerDoors() const;

private:
    DiPtr<Tile>& Slot(const TileKindName& kindName);

    std::string name;
    std::string type;
    std::int32_t tileSize = 256;
    float wallThickness = 0.0F;
    std::array<DiPtr<Tile>, TileKind::kCount> known;
    std::map<std::string, DiPtr<Tile>, std::less<>> others; // by upper-cased name
};

} // namespace Tarnex
