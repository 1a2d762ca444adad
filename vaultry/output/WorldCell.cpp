// SPDX-License-Identifier: MIT
#include <vaultry/output/WorldCell.h>

#include <array>
#include <sstream>

namespace Tarnex {

namespace {

constexpr std::uint32_t kHasWater = 2;

// The parts of a head, by the means of all elements.
class HeadWriter : public Element {
public:
    HeadWriter(std::int32_t newColumn, std::int32_t newRow, const std::string& newRegion)
        : column(newColumn), row(newRow), region(newRegion) {}

    void Write(std::ostream& stream) override {
        WriteText(stream, "NAME", "");
        WriteWords(stream,
                   "DATA",
                   std::array<std::uint32_t, 3>{kHasWater,
                                                static_cast<std::uint32_t>(column),
                                                static_cast<std::uint32_t>(row)});
        if (!region.empty()) {
            WriteText(stream, "RGNN", region);
        }
    }

private:
    std::int32_t column;
    std::int32_t row;
    const std::string& region;
};

} // namespace

CellHead WildernessHead(std::int32_t column, std::int32_t row, const std::string& region) {
    std::ostringstream bytes;
    HeadWriter(column, row, region).Write(bytes);
    return {std::move(bytes).str()};
}

void WorldCell::Write(std::ostream& stream) {
    std::uint32_t size = static_cast<std::uint32_t>(head.bytes.size());
    for (const Ref& ref : refs) {
        size += ref.GetTotalSize();
    }
    WriteRecordHeader(stream, "CELL", size);
    stream.write(head.bytes.data(), static_cast<std::streamsize>(head.bytes.size()));
    std::uint32_t number = firstNumber;
    for (Ref& ref : refs) {
        ref.SetIndex(number++);
        ref.Write(stream);
    }
}

} // namespace Tarnex
