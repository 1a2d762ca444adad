// SPDX-License-Identifier: MIT
#include <vaultry/output/FileHeader.h>

#include <array>
#include <ostream>

namespace Tarnex {

namespace {

constexpr const char* kGameMaster = "Morrowind.esm";
constexpr std::uint32_t kGameMasterSize = 79821084;

constexpr const char* kUsualDescription = "Auto-generated mod";

constexpr std::uint32_t kAuthorLength = 32;
// The format's 256 bytes of description and the record count behind it, which stays 0.
constexpr std::uint32_t kDescriptionLength = 260;
constexpr std::uint32_t kHedrSize = 4 + 4 + kAuthorLength + kDescriptionLength;
constexpr std::uint32_t kDataSize = 8;

} // namespace

FileHeader::FileHeader() {
    SetMasterFile(nullptr, 0);
    SetDescription(nullptr);
}

void FileHeader::SetMasterFile(const char* name, std::uint32_t size) {
    const bool named = name != nullptr && *name != '\0';
    masterName = named ? name : kGameMaster;
    masterSize = named || size != 0 ? size : kGameMasterSize;
}

// What is longer would be taken for the record count.
void FileHeader::SetDescription(const char* text) {
    const bool given = text != nullptr && *text != '\0';
    description = std::string(given ? text : kUsualDescription).substr(0, kLongestDescription);
}

void FileHeader::UpdateSize() {
    constexpr std::uint32_t kHeaders = kSubHeader + kSubHeader + (kSubHeader + kDataSize);
    recordSize = FieldLength(masterName) + kHedrSize + kHeaders;
}

void FileHeader::Write(std::ostream& stream) {
    UpdateSize();
    WriteRecordHeader(stream, "TES3", recordSize);
    stream << "HEDR";
    WriteInt(stream, static_cast<std::int32_t>(kHedrSize));
    WriteInt(stream, static_cast<std::int32_t>(FloatBits(version)));
    WriteInt(stream, static_cast<std::int32_t>(fileType));
    WriteString(stream, author, kAuthorLength);
    WriteString(stream, description, kDescriptionLength);
    WriteText(stream, "MAST", masterName);
    // The master's 64-bit size: the low word, then a high word of 0.
    WriteWords(stream, "DATA", std::array<std::uint32_t, 2>{masterSize, 0});
}

} // namespace Tarnex
