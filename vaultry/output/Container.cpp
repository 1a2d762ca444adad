// SPDX-License-Identifier: MIT
#include <vaultry/output/Container.h>

#include <ostream>

namespace Tarnex {

namespace {

constexpr std::uint32_t kItemIdLength = 32;
constexpr std::uint32_t kNpcoSize = 4 + kItemIdLength;
// The bit that readers demand of every container.
constexpr std::uint32_t kContainerFlags = 8;

} // namespace

const std::string& Container::TextOf(const Name& name) {
    static const std::string none;
    return name ? *name : none;
}

void Container::WriteName(std::ostream& stream, std::string_view tag, const Name& name) const {
    if (name) {
        WriteText(stream, tag, *name);
    } else {
        WriteWords(stream, tag, {});
    }
}

void Container::Add(const char* itemId, std::uint32_t count) {
    inventory.emplace_back(itemId, count);
}

void Container::UpdateSize() {
    recordSize = 2 * kWordSub; // CNDT, FLAG
    for (const auto* name : {&id, &modelName, &friendlyName}) {
        recordSize += kSubHeader + (*name ? FieldLength(**name) : 0);
    }
    recordSize += (kSubHeader + kNpcoSize) * static_cast<std::uint32_t>(inventory.size());
}

void Container::Write(std::ostream& stream) {
    UpdateSize();
    WriteRecordHeader(stream, "CONT", recordSize);
    WriteName(stream, "NAME", id);
    WriteName(stream, "MODL", modelName);
    WriteName(stream, "FNAM", friendlyName);
    WriteWord(stream, "CNDT", FloatBits(weight));
    WriteWord(stream, "FLAG", kContainerFlags);
    for (const auto& [itemId, count] : inventory) {
        stream << "NPCO";
        WriteInt(stream, static_cast<std::int32_t>(kNpcoSize));
        WriteInt(stream, static_cast<std::int32_t>(count));
        WriteString(stream, itemId, kItemIdLength);
    }
}

} // namespace Tarnex
