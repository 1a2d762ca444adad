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

void Container::SetId(const char* newId) {
    id = newId;
    idSize = FieldLength(id);
}

void Container::SetFriendlyName(const char* newName) {
    friendlyName = newName;
    friendlyNameSize = FieldLength(friendlyName);
}

void Container::SetModelName(const char* newName) {
    modelName = newName;
    modelNameSize = FieldLength(modelName);
}

void Container::Add(const char* itemId, std::uint32_t count) {
    inventory.emplace_back(itemId, count);
}

void Container::UpdateSize() {
    recordSize = kSubHeader + idSize;            // NAME
    recordSize += kSubHeader + modelNameSize;    // MODL
    recordSize += kSubHeader + friendlyNameSize; // FNAM
    recordSize += kWordSub;                      // CNDT
    recordSize += kWordSub;                      // FLAG
    recordSize += (kSubHeader + kNpcoSize) * static_cast<std::uint32_t>(inventory.size());
}

void Container::Write(std::ostream& stream) {
    UpdateSize();
    WriteRecordHeader(stream, "CONT", recordSize);
    WriteText(stream, "NAME", id, idSize);
    WriteText(stream, "MODL", modelName, modelNameSize);
    WriteText(stream, "FNAM", friendlyName, friendlyNameSize);
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
