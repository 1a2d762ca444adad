// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>

#include <array>
#include <cstddef>

namespace Tarnex {

namespace {

constexpr char kMissing = '?';
constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kMalformed = 0xFFFFFFFF;

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

void AppendUtf8(std::string& text, char32_t c) {
    const auto byte = [&text](char32_t value) { text.push_back(static_cast<char>(value)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | (c >> 6));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xE0 | (c >> 12));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

struct LeadByte {
    unsigned mask;
    unsigned pattern;
    std::size_t length;
    char32_t smallest; // a shorter form must be used below it
};

constexpr std::array<LeadByte, 4> kLeadBytes = {{
    {0x80, 0x00, 1, 0x0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
}};

constexpr bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

char32_t DecodeSequence(std::string_view text, const LeadByte& lead) {
    char32_t c = static_cast<unsigned char>(text[0]) & ~lead.mask;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0U) != 0x80U) {
            return kMalformed;
        }
        c = (c << 6) | (next & 0x3FU);
    }
    const bool valid = c >= lead.smallest && c <= 0x10FFFF && !IsSurrogate(c);
    return valid ? c : kMalformed;
}

// Takes one character off the front of `text`; a malformed byte is taken alone.
char32_t TakeCharacter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text[0]);
    for (const LeadByte& lead : kLeadBytes) {
        if ((first & lead.mask) == lead.pattern && text.size() >= lead.length) {
            const char32_t c = DecodeSequence(text, lead);
            text.remove_prefix(c == kMalformed ? 1 : lead.length);
            return c;
        }
    }
    text.remove_prefix(1);
    return kMalformed;
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
        const char32_t character = TakeCharacter(utf8);
        const char byte = CodePageByte(character);
        missing = missing || (byte == kMissing && character != U'?');
        text.push_back(byte);
    }
    if (lost != nullptr) {
        *lost = missing;
    }
    return text;
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
