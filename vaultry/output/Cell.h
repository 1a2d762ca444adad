// SPDX-License-Identifier: MIT
// One generated interior.
#pragma once

#include <vaultry/output/Element.h>
#include <vaultry/output/RGBColor.h>
#include <vaultry/output/Ref.h>

#include <utility>
#include <vector>

namespace Tarnex {

/// An interior cell: its name, its light and the references placed in it, in order of insertion.
///
/// Made by Mod::CreateCell. The light is the same in all cells: dim from all sides, bright from
/// above, and black fog of density 1; there is no water.
///
/// @code
/// const DiPtr<Tarnex::Cell> crypt = mod.CreateCell("Old Crypt");
/// Tarnex::Ref wall("in_crypt_wall");
/// wall.position = Di3Point(0.0F, 256.0F, 0.0F);
/// crypt->AddRef(wall);
/// @endcode
class VAULTRY_API Cell : public Element {
public:
    /// A cell without references. The name may be empty, not null; the game shows it and looks the
    /// cell up by it. The game tells cells apart by their names: two of one name in a player's
    /// plug-ins become one.
    explicit Cell(const char* name_) : name(name_) {}

    /// The name that the cell was made with.
    const std::string& GetName() const { return name; }
    /// The references, in order of insertion; held by the cell. The first one of a generated cell
    /// is its north marker.
    const std::vector<Ref>& GetRefs() const { return refs; }

    /// Makes room for that many further references at once. Takes memory alone: nothing is added.
    void Reserve(std::size_t count) { refs.reserve(refs.size() + count); }
    /// Appends the reference. Its number comes with Write; what it had is written over. Makes
    /// references into GetRefs invalid.
    void AddRef(Ref ref) { refs.push_back(std::move(ref)); }

    /// Locks a reference by its place in the list, which has one there; see Ref::Lock.
    void LockRef(std::size_t place, const RefLock& lock) { refs[place].Lock(lock); }

    /// The number of the first reference, 1 unless it is set; the others follow it.
    void NumberFrom(std::uint32_t number) { firstNumber = number; }

    /// Computes the record's data size, as Write does first.
    void UpdateSize();
    /// The data size last computed, without the record's header. [bytes] 0 before that.
    std::uint32_t GetRecordSize() const { return recordSize; }

    /// Writes the record, and numbers the references.
    void Write(std::ostream& stream) override;

private:
    std::uint32_t recordSize = 0;
    std::uint32_t firstNumber = 1;
    std::string name;
    std::uint32_t flags = 1; // an interior
    RGBColor ambient{71, 71, 71};
    RGBColor fogColor{0, 0, 0};
    RGBColor sunlight{242, 217, 217};
    float fogDensity = 1.0F;
    std::uint32_t waterHeight = 0;
    std::vector<Ref> refs;
};

} // namespace Tarnex
