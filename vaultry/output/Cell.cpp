// SPDX-License-Identifier: MIT
#include <vaultry/output/Cell.h>

#include <array>
#include <ostream>

namespace Tarnex {

namespace {

constexpr std::uint32_t kDataWords = 3;
constexpr std::uint32_t kAmbientWords = 4;

} // namespace

void Cell::UpdateSize() {
    recordSize = kSubHeader + FieldLength(name);  // NAME
    recordSize += kSubHeader + kDataWords * 4;    // DATA
    recordSize += kWordSub;                       // INTV
    recordSize += kSubHeader + kAmbientWords * 4; // AMBI
    if (!refs.empty()) {
        recordSize += kWordSub; // NAM0
    }
    for (const Ref& ref : refs) {
        recordSize += ref.GetTotalSize();
    }
}

void Cell::Write(std::ostream& stream) {
    UpdateSize();
    const std::uint32_t density = FloatBits(fogDensity);
    WriteRecordHeader(stream, "CELL", recordSize);
    WriteText(stream, "NAME", name);
    // An interior has no grid position; its place in DATA holds the fog colour and density.
    WriteWords(
        stream, "DATA", std::array<std::uint32_t, kDataWords>{flags, fogColor.Word(), density});
    WriteWord(stream, "INTV", waterHeight);
    WriteWords(stream,
               "AMBI",
               std::array<std::uint32_t, kAmbientWords>{
                   ambient.Word(), sunlight.Word(), fogColor.Word(), density});
    if (refs.empty()) {
        return;
    }
    const auto count = static_cast<std::uint32_t>(refs.size());
    WriteWord(stream, "NAM0", count);
    // What a stream that failed is given is lost anyway.
    for (std::uint32_t i = 0; i < count && stream.good(); ++i) {
        refs[i].SetIndex(firstNumber + i);
        refs[i].Write(stream);
    }
}

} // namespace Tarnex
