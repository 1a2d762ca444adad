// SPDX-License-Identifier: MIT
// One generated interior.
#pragma once

#include <vaultry/output/Element.h>
#include <vaultry/output/RGBColor.h>
#include <vaultry/output/Ref.h>

#include <vector>

namespace Tarnex {

/// An interior cell: its name, its light and the references placed in it, in order of insertion.
class VAULTRY_API Cell : public Element {
public:
    explicit Cell(const char* name);

    const std::string& GetName() const { return name; }
    const std::vector<Ref>& GetRefs() const { return refs; }

    /// Makes room for that many further references at once.
    void Reserve(std::size_t count) { refs.reserve(refs.size() + count); }
    /// Appends a copy of the reference.
    void AddRef(const Ref& ref);
    void AddRef(Ref&& ref);

    /// Computes the record's data size. [bytes]
    void UpdateSize();
    std::uint32_t GetRecordSize() const { return recordSize; }

    /// Writes the record; the references are numbered from 1.
    void Write(std::ostream& stream) override;

private:
    std::uint32_t recordSize = 0;
    std::string name;
    std::uint32_t nameSize = 0;
    std::uint32_t flags = 1; // an interior
    RGBColor ambient{71, 71, 71};
    RGBColor fogColor{0, 0, 0};
    RGBColor sunlight{242, 217, 217};
    float fogDensity = 1.0F;
    std::uint32_t waterHeight = 0;
    std::vector<Ref> refs;
};

} // namespace Tarnex
