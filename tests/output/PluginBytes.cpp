// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <sstream>
#include <tests/output/PluginBytes.h>

namespace Tarnex::Test {

namespace {

constexpr std::size_t kSubHeader = 8;
constexpr std::size_t kRecordHeader = 16;

std::uint32_t WordAt(std::string_view bytes, std::size_t place) {
    std::uint32_t word = 0;
    for (std::size_t i = 4; i-- > 0;) {
        word = word << 8 | static_cast<unsigned char>(bytes[place + i]);
    }
    return word;
}

// Cuts a tagged block with a header of `header` bytes off the front; empty when it does not fit.
std::string_view TakeBlock(std::string_view& bytes, std::size_t header) {
    if (bytes.size() < header || bytes.size() - header < WordAt(bytes, 4)) {
        ADD_FAILURE() << "The size word of " << ::testing::PrintToString(bytes.substr(0, 4))
                      << " does not fit: " << bytes.size() << " bytes are left";
        bytes = {};
        return {};
    }
    const std::string_view block = bytes.substr(0, header + WordAt(bytes, 4));
    bytes.remove_prefix(block.size());
    return block;
}

} // namespace

std::string Written(Element& element) {
    std::ostringstream stream(std::ios::binary);
    element.Write(stream);
    EXPECT_TRUE(stream.good());
    return stream.str();
}

std::string Hex(std::string_view digits) {
    std::string bytes;
    std::string pair;
    for (const char c : digits) {
        if (c == ' ') {
            continue;
        }
        pair.push_back(c);
        if (pair.size() == 2) {
            bytes.push_back(static_cast<char>(std::stoi(pair, nullptr, 16)));
            pair.clear();
        }
    }
    return bytes;
}

std::string Zeros(std::size_t count) {
    return std::string(count, '\0');
}

std::vector<SubRecord> WalkSubRecords(std::string_view bytes) {
    std::vector<SubRecord> subs;
    while (!bytes.empty()) {
        const std::string_view block = TakeBlock(bytes, kSubHeader);
        if (!block.empty()) {
            subs.push_back(
                {std::string(block.substr(0, 4)), std::string(block.substr(kSubHeader))});
        }
    }
    return subs;
}

std::vector<Record> WalkRecords(std::string_view bytes) {
    std::vector<Record> records;
    while (!bytes.empty()) {
        const std::string_view block = TakeBlock(bytes, kRecordHeader);
        if (!block.empty()) {
            records.push_back({std::string(block.substr(0, 4)),
                               WordAt(block, 4),
                               std::string(block.substr(8, 8)),
                               WalkSubRecords(block.substr(kRecordHeader))});
        }
    }
    return records;
}

std::string Tags(const std::vector<SubRecord>& subs) {
    std::string tags;
    for (const SubRecord& sub : subs) {
        tags += (tags.empty() ? "" : " ") + sub.tag;
    }
    return tags;
}

std::string MasterOf(std::string_view bytes) {
    const std::vector<SubRecord> subs = WalkRecords(bytes).at(0).subs;
    const std::string& name = subs.at(1).data;
    return name.substr(0, name.find('\0')) + ' ' + std::to_string(WordAt(subs.at(2).data, 0));
}

} // namespace Tarnex::Test
