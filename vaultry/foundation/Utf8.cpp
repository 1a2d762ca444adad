// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Utf8.h>

#include <array>
#include <cstddef>

namespace Tarnex {

namespace {

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

} // namespace

char32_t TakeUtf8(std::string_view& text) {
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

void AppendUtf8(std::string& text, char32_t c) {
    const auto byte = [&text](char32_t value) { text.push_back(static_cast<char>(value)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | (c >> 6));
        byte(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        byte(0xE0 | (c >> 12));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xF0 | (c >> 18));
        byte(0x80 | ((c >> 12) & 0x3F));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

} // namespace Tarnex
