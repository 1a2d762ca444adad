// SPDX-License-Identifier: MIT
#include <vaultry/output/Ref.h>

#include <array>

namespace Tarnex {

namespace {

constexpr float kPlainScale = 1.0F; // not written
constexpr std::uint32_t kPlaceWords = 6;

} // namespace

void Ref::Teleport(const Ref& place) {
    destination = MakeDi<Ref>(place);
}

std::uint32_t Ref::GetTotalSize() const {
    constexpr std::uint32_t kPlaceSub = kSubHeader + kPlaceWords * 4;
    std::uint32_t size = kWordSub;          // FRMR
    size += kSubHeader + FieldLength(name); // NAME
    if (scale != kPlainScale) {
        size += kWordSub; // XSCL
    }
    if (destination) {
        size += kPlaceSub; // DODT
        if (!destination->name.empty()) {
            size += kSubHeader + FieldLength(destination->name); // DNAM
        }
    }
    return size + kPlaceSub; // DATA
}

void Ref::Write(std::ostream& stream) {
    const auto place = [](const Ref& ref) {
        return std::array<std::uint32_t, kPlaceWords>{FloatBits(ref.position.x),
                                                      FloatBits(ref.position.y),
                                                      FloatBits(ref.position.z),
                                                      FloatBits(ref.rotation.x),
                                                      FloatBits(ref.rotation.y),
                                                      FloatBits(ref.rotation.z)};
    };
    WriteWord(stream, "FRMR", index);
    WriteText(stream, "NAME", name);
    if (scale != kPlainScale) {
        WriteWord(stream, "XSCL", FloatBits(scale));
    }
    if (destination) {
        WriteWords(stream, "DODT", place(*destination));
        if (!destination->name.empty()) {
            WriteText(stream, "DNAM", destination->name);
        }
    }
    WriteWords(stream, "DATA", place(*this));
}

} // namespace Tarnex
