// SPDX-License-Identifier: MIT
// A cell of the game that a plug-in adds to.
#pragma once

#include <vaultry/output/CellHead.h>
#include <vaultry/output/Element.h>
#include <vaultry/output/Ref.h>

#include <utility>
#include <vector>

namespace Tarnex {

/// References that are added to a cell of the game, of the world outside or an interior. The game
/// keeps what it has there itself, and takes the head of the cell from whatever file it loads last.
/// Made by Mod::CreateWorldCell.
///
/// Nothing tells how many references there are: in the game that number parts those that are always
/// there, as doors to other cells have to be, from those that come and go with the cell.
class VAULTRY_API WorldCell : public Element {
public:
    /// A cell with that head, to which nothing is added yet.
    explicit WorldCell(CellHead head_) : head(std::move(head_)) {}

    /// The head that the cell was made with.
    const CellHead& GetHead() const { return head; }
    /// The references, in order of insertion; held by the cell.
    const std::vector<Ref>& GetRefs() const { return refs; }

    /// Appends the reference. Its number comes with Write.
    void AddRef(Ref ref) { refs.push_back(std::move(ref)); }

    /// The number of the first reference, 1 unless it is set; the others follow it.
    void NumberFrom(std::uint32_t number) { firstNumber = number; }

    /// Writes the record, and numbers the references.
    void Write(std::ostream& stream) override;

private:
    CellHead head;
    std::uint32_t firstNumber = 1;
    std::vector<Ref> refs;
};

} // namespace Tarnex
