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

void Ref::Lock(const RefLock& newLock) {
    lock = MakeDi<RefLock>(newLock);
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
    if (lock) {
        size += lock->level ? kWordSub : 0;                                    // FLTV
        size += lock->key.empty() ? 0 : kSubHeader + FieldLength(lock->key);   // KNAM
        size += lock->trap.empty() ? 0 : kSubHeader + FieldLength(lock->trap); // TNAM
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
    if (lock && lock->level) {
        WriteWord(stream, "FLTV", static_cast<std::uint32_t>(*lock->level));
    }
    if (lock && !lock->key.empty()) {
        WriteText(stream, "KNAM", lock->key);
    }
    if (lock && !lock->trap.empty()) {
        WriteText(stream, "TNAM", lock->trap);
    }
    WriteWords(stream, "DATA", place(*this));
}

} // namespace Tarnex
