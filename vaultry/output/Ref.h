// SPDX-License-Identifier: MIT
// One object placed in a cell.
#pragma once

#include <vaultry/foundation/Di3Point.h>
#include <vaultry/foundation/DiPtr.h>
#include <vaultry/output/Element.h>
#include <vaultry/output/RefLock.h>

namespace Tarnex {

/// What a reference stands for. It is not written; reports and maps count by it.
enum class RefSort : std::uint8_t {
    Marker,    ///< the marker that every cell begins with
    Tile,      ///< a piece of the architecture
    Door,      ///< a door tile
    Platform,  ///< a piece of a platform
    Container, ///< a container with treasure of its own
    Creature,  ///< content of that kind
    Furniture, ///< content of that kind
    Rug,       ///< content of that kind
    Tapestry,  ///< content of that kind
    Other,     ///< content of any other kind
};

/// The number of sorts.
inline constexpr std::size_t kRefSorts = 10;

/// A placed object: a tile piece, platform piece, content item, container or door, written as the
/// sub-records of one reference inside its cell's record.
///
/// Cells and doors keep copies. Positions are those of the game, with x to the east, y to the north
/// and z upwards; a positive turn about z is clockwise seen from above.
class VAULTRY_API Ref : public Element {
public:
    float scale = 1.0F;            ///< of the model; written only when it is not 1
    Di3Point position;             ///< [world units]
    Di3Point rotation;             ///< about x, y, z [radians]
    RefSort sort = RefSort::Other; ///< for reports; not written

    /// `name_` is the identifier of the object that is placed; not null. The game's files or the
    /// plug-in itself have to define that object; nobody checks it here.
    explicit Ref(const char* name_) : name(name_) {}

    /// The identifier of the object that is placed.
    const std::string& GetName() const { return name; }
    /// Replaces the identifier; not null.
    void SetName(const char* newName) { name = newName; }

    /// The number under which the reference is written. Cell::Write gives each its own.
    void SetIndex(std::uint32_t newIndex) { index = newIndex; }

    /// Makes the reference a teleporting door. The destination's name is the cell that the door
    /// leads to (empty: the outside), its position and rotation the point of arrival; a copy of it
    /// is kept, releasing any earlier one.
    ///
    /// @code
    /// Tarnex::Ref arrival("Old Crypt");
    /// arrival.position = Di3Point(128.0F, -256.0F, 0.0F);
    /// door.Teleport(arrival);
    /// @endcode
    void Teleport(const Ref& destination);
    /// Where the door leads, or null.
    const DiPtr<Ref>& GetDestination() const { return destination; }

    /// Locks the reference, or arms it with a trap: a copy of the lock is kept, releasing any
    /// earlier one. For doors and containers; the game ignores it on other things.
    void Lock(const RefLock& newLock);
    /// What keeps somebody from opening it, or null.
    const DiPtr<RefLock>& GetLock() const { return lock; }

    /// The bytes that Write produces. It has no header of its own: the record is its cell's.
    std::uint32_t GetTotalSize() const;
    /// Writes the sub-records, from the number to the last part of the place.
    void Write(std::ostream& stream) override;

private:
    std::uint32_t index = 0;
    DiPtr<Ref> destination;
    DiPtr<RefLock> lock;
    std::string name;
};

} // namespace Tarnex
