// SPDX-License-Identifier: MIT
// What a plug-in file says, as plain values.
#pragma once

#include <vaultry/foundation/Di3Point.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex {

/// Something in a file that does not fit, and where.
struct PluginFinding {
    std::uint64_t offset = 0; ///< of the record, sub-record or bytes concerned [bytes]
    std::string text;

    bool operator==(const PluginFinding&) const = default;
};

/// A file that the plug-in depends on.
struct PluginMaster {
    std::string name;
    std::uint64_t size = 0; ///< [bytes]
};

/// The TES3 record.
struct PluginHeader {
    float version = 0.0F;
    std::uint32_t type = 0; ///< 0 a plug-in, 1 a master, 32 a saved game
    std::string author;
    std::string description;
    std::uint32_t recordCount = 0; ///< as the header says; Vaultry writes 0
    std::vector<PluginMaster> masters;
};

/// Where something stands and how it is turned.
struct PluginPlace {
    Di3Point position; ///< [world units]
    Di3Point rotation; ///< about x, y, z [radians]
};

/// Where a teleporting door leads.
struct PluginDestination {
    std::string cell; ///< empty: the outside
    PluginPlace arrival;
};

/// One object placed in a cell.
struct PluginRef {
    std::uint64_t offset = 0; ///< of its FRMR [bytes]
    std::uint32_t index = 0;  ///< the number; its highest byte counts masters, 0 is this file
    std::string id;
    float scale = 1.0F;
    PluginPlace place;
    std::optional<PluginDestination> destination;
    bool deleted = false; ///< takes away what a master placed
};

/// A colour as it stands in the file: red in the lowest byte.
using PluginColor = std::uint32_t;

/// One interior.
struct PluginCell {
    std::uint64_t offset = 0; ///< of its record [bytes]
    std::string name;
    std::uint32_t flags = 1; ///< 1 an interior, 2 with water, 4 no sleeping, 128 like an exterior
    PluginColor ambient = 0;
    PluginColor sunlight = 0;
    PluginColor fog = 0;
    float fogDensity = 0.0F;
    float waterHeight = 0.0F; ///< [world units]
    bool deleted = false;
    std::vector<PluginRef> refs;
    std::optional<std::uint32_t> refCount; ///< as NAM0 says
    std::size_t refsBeforeCount = 0;       ///< references that stand before NAM0
};

/// An item and how many of it; a negative count is refilled by the game.
struct PluginItem {
    std::string id;
    std::int32_t count = 0;
};

/// One container.
struct PluginContainer {
    std::uint64_t offset = 0; ///< of its record [bytes]
    std::string id;
    std::string model;
    std::string name;
    float capacity = 0.0F;   ///< [weight units of the game]
    std::uint32_t flags = 0; ///< 1 organic, 2 respawning, 8 always
    bool deleted = false;
    std::vector<PluginItem> items;
};

/// How often each tag occurs.
using PluginTagCounts = std::map<std::string, std::uint64_t>;

/// Everything that is read from a plug-in. Text is Windows-1252, as it stands in the file, and ends
/// before its first zero byte; tags are letters, digits and underscores.
struct PluginFile {
    /// Whether the bytes begin like a plug-in at all; without it nothing else is filled.
    bool isPlugin = false;
    /// Whether all bytes could be read; otherwise a finding tells where it ended.
    bool complete = false;
    std::uint64_t size = 0; ///< of the file [bytes]
    PluginHeader header;
    std::vector<PluginCell> cells; ///< the interiors
    std::uint64_t exteriorCells = 0;
    std::vector<PluginContainer> containers;
    std::uint64_t records = 0;         ///< all records behind the header
    PluginTagCounts otherRecords;      ///< neither cells nor containers
    PluginTagCounts skippedSubRecords; ///< of the header, the interiors and the containers
    std::vector<PluginFinding> findings;
    std::uint64_t findingsLeftOut = 0; ///< a ruined file would give more than is of use
};

} // namespace Tarnex
