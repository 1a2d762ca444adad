// SPDX-License-Identifier: MIT
// What a plug-in file says, as plain values.
#pragma once

#include <vaultry/foundation/Di3Point.h>
#include <vaultry/output/PathGrid.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex {

/// Something in a file that does not fit, and where. Front ends may show it as it is.
struct PluginFinding {
    std::uint64_t offset = 0; ///< of the record, sub-record or bytes concerned [bytes]
    std::string text;         ///< what does not fit, in English and ASCII

    /// Equality of place and text.
    bool operator==(const PluginFinding&) const = default;
};

/// A file that the plug-in depends on.
struct PluginMaster {
    std::string name;       ///< its file name
    std::uint64_t size = 0; ///< as the header says [bytes]
};

/// The TES3 record.
struct PluginHeader {
    float version = 0.0F;              ///< of the format, 1.2 or 1.3
    std::uint32_t type = 0;            ///< 0 a plug-in, 1 a master, 32 a saved game
    std::string author;                ///< at most 32 bytes
    std::string description;           ///< at most 256 bytes
    std::uint32_t recordCount = 0;     ///< as the header says; Vaultry writes 0
    std::vector<PluginMaster> masters; ///< in the order of the file
};

/// Where something stands and how it is turned. As in the file: what is no number stays so, and
/// turns are not brought back to one round.
struct PluginPlace {
    Di3Point position; ///< [world units]
    Di3Point rotation; ///< about x, y, z [radians]
};

/// Where a teleporting door leads.
struct PluginDestination {
    std::string cell;    ///< empty: the outside
    PluginPlace arrival; ///< where one stands behind the door
};

/// What keeps somebody from opening a door or a container.
struct PluginLock {
    /// How hard it is to pick, 1 to 100 by the game's editor; 0 or less: it is not locked. Nothing
    /// where the file does not say.
    std::optional<std::int32_t> level;
    std::string key;  ///< the item that opens it; without a level above 0, alone
    std::string trap; ///< the spell that strikes whoever opens it

    /// Equality of all three.
    bool operator==(const PluginLock&) const = default;
};

/// One object placed in a cell. A reference whose identifier or place is missing is kept, with a
/// finding, unless the file ends in it.
struct PluginRef {
    std::uint64_t offset = 0; ///< of its FRMR [bytes]
    std::uint32_t index = 0;  ///< the number; its highest byte counts masters, 0 is this file
    std::string id;           ///< of the object that is placed
    float scale = 1.0F;       ///< of its model
    PluginPlace place;        ///< in the cell
    std::optional<PluginDestination> destination; ///< of a teleporting door
    std::optional<PluginLock> lock;               ///< of whatever says anything of one
    bool deleted = false;                         ///< takes away what a master placed
};

/// A colour as it stands in the file: red in the lowest byte.
using PluginColor = std::uint32_t;

/// One interior, or a cell of the world outside.
struct PluginCell {
    std::uint64_t offset = 0; ///< of its record [bytes]
    std::string name;         ///< by which doors and the console find it; outside mostly empty
    std::uint32_t flags = 1;  ///< 1 an interior, 2 with water, 4 no sleeping, 128 like an exterior
    PluginColor ambient = 0;  ///< light from all sides
    PluginColor sunlight = 0; ///< light from above
    PluginColor fog = 0;      ///< what distance fades into
    float fogDensity = 0.0F;  ///< from 0 (none) to 1
    float waterHeight = 0.0F; ///< [world units]
    std::int32_t column = 0;  ///< outside: to the east of the middle of the world [cells]
    std::int32_t row = 0;     ///< outside: to the north of it [cells]
    std::string region;       ///< outside, and of interiors that are like it: weather and music
    bool deleted = false;     ///< takes away what a master made
    std::vector<PluginRef> refs;           ///< in the order of the file
    std::optional<std::uint32_t> refCount; ///< as NAM0 says
    std::size_t refsBeforeCount = 0;       ///< references that stand before NAM0
};

/// The path grid of an interior, or of a place in the world outside.
struct PluginPathGrid {
    std::uint64_t offset = 0;      ///< of its record [bytes]
    std::string cell;              ///< the name of an interior
    std::vector<PathPoint> points; ///< as the file has them: a way may lead to none of them
};

/// An item and how many of it; a negative count is refilled by the game.
struct PluginItem {
    std::string id;         ///< of an item, or of a list of items by level
    std::int32_t count = 0; ///< how many
};

/// One item that the game takes for a key. A deleted one may hold nothing but its identifier.
struct PluginKey {
    std::uint64_t offset = 0; ///< of its record [bytes]
    std::string id;           ///< by which doors and containers name it
    std::string name;         ///< that the player sees
    std::string model;        ///< file of its model
    std::string icon;         ///< file of its picture
    float weight = 0.0F;      ///< [weight units of the game]
    std::int32_t worth = 0;   ///< [gold pieces]
    bool deleted = false;     ///< takes away what a master defined
};

/// One container. A deleted one may hold nothing but its identifier.
struct PluginContainer {
    std::uint64_t offset = 0;      ///< of its record [bytes]
    std::string id;                ///< by which references name it
    std::string model;             ///< file of its model
    std::string name;              ///< that the player sees
    float capacity = 0.0F;         ///< [weight units of the game]
    std::uint32_t flags = 0;       ///< 1 organic, 2 respawning, 8 always
    bool deleted = false;          ///< takes away what a master defined
    std::vector<PluginItem> items; ///< in the order of the file
};

/// How often each tag occurs. In alphabetical order, capitals first; a tag that does not occur is
/// missing.
using PluginTagCounts = std::map<std::string, std::uint64_t>;

/// Everything that is read from a plug-in. Text is Windows-1252, as it stands in the file, and ends
/// before its first zero byte; tags are letters, digits and underscores.
struct PluginFile {
    /// Whether the bytes begin like a plug-in at all; without it nothing else is filled.
    bool isPlugin = false;
    /// Whether all bytes could be read; otherwise a finding tells where it ended.
    bool complete = false;
    std::uint64_t size = 0;          ///< of the file [bytes]
    PluginHeader header;             ///< its first record
    std::vector<PluginCell> cells;   ///< the interiors
    std::uint64_t exteriorCells = 0; ///< how many there are of the world outside
    /// Those of them that have teleporting doors, and of their references no other ones.
    std::vector<PluginCell> exteriors;
    std::vector<PluginKey> keys;             ///< in the order of the file
    std::vector<PluginContainer> containers; ///< in the order of the file
    std::vector<PluginPathGrid> pathGrids;   ///< in the order of the file
    std::uint64_t records = 0;               ///< all records behind the header
    PluginTagCounts otherRecords;            ///< neither cells, keys, containers nor path grids
    PluginTagCounts skippedSubRecords;       ///< of the records that are read
    std::vector<PluginFinding> findings; ///< in the order of the file, kMostPluginFindings at most
    std::uint64_t findingsLeftOut = 0;   ///< a ruined file would give more than is of use
};

} // namespace Tarnex
