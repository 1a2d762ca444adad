// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Utf8.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace Tarnex {

namespace {

constexpr char kMissing = '?';

// The characters of the bytes 0x80 to 0x9F; 0 where the code page leaves a byte unassigned. All
// other bytes are the characters of the same number.
constexpr std::size_t kFirstSpecial = 0x80;
constexpr std::array<char16_t, 32> kSpecials = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80 to 87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,      // 88 to 8F
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90 to 97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178, // 98 to 9F
};

constexpr bool IsSpecial(char32_t byte) {
    return byte >= kFirstSpecial && byte < kFirstSpecial + kSpecials.size();
}

} // namespace

char CodePageByte(char32_t character) {
    if (character <= 0xFF && !IsSpecial(character)) {
        return static_cast<char>(static_cast<unsigned char>(character));
    }
    for (std::size_t i = 0; i < kSpecials.size(); ++i) {
        if (kSpecials[i] != 0 && kSpecials[i] == character) {
            return static_cast<char>(static_cast<unsigned char>(kFirstSpecial + i));
        }
    }
    return kMissing;
}

std::string FromUtf8(std::string_view utf8, bool* lost) {
    std::string text;
    text.reserve(utf8.size());
    bool missing = false;
    while (!utf8.empty()) {
        const char32_t character = TakeUtf8(utf8);
        const char byte = CodePageByte(character);
        missing = missing || (byte == kMissing && character != U'?');
        text.push_back(byte);
    }
    if (lost != nullptr) {
        *lost = missing;
    }
    return text;
}

std::vector<std::string> MissingFromCodePage(std::string_view utf8) {
    std::vector<std::string> missing;
    while (!utf8.empty()) {
        const char32_t character = TakeUtf8(utf8);
        if (CodePageByte(character) != kMissing || character == U'?') {
            continue;
        }
        std::string letter;
        AppendUtf8(letter, character == kMalformed ? kReplacement : character);
        if (std::ranges::find(missing, letter) == missing.end()) {
            missing.push_back(std::move(letter));
        }
    }
    return missing;
}

std::string ToUtf8(std::string_view codePageText) {
    std::string utf8;
    utf8.reserve(codePageText.size());
    for (const char c : codePageText) {
        const char32_t byte = static_cast<unsigned char>(c);
        if (!IsSpecial(byte)) {
            AppendUtf8(utf8, byte);
            continue;
        }
        const char32_t character = kSpecials[byte - kFirstSpecial];
        AppendUtf8(utf8, character == 0 ? kReplacement : character);
    }
    return utf8;
}

std::filesystem::path PathFromUtf8(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

} // namespace Tarnex
