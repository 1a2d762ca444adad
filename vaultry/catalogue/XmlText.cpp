// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/XmlText.h>

#include <vaultry/foundation/CodePage.h>

#include <algorithm>

namespace Tarnex {

namespace {

constexpr bool IsAscii(char16_t c) {
    return c < 0x80;
}

constexpr bool IsHighSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool IsLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

} // namespace

void NarrowInto(std::string& narrow, std::u16string_view wide) {
    // Nearly all text is ASCII from its beginning to its end.
    const auto special = std::ranges::find_if_not(wide, IsAscii);
    const auto plain = static_cast<std::size_t>(special - wide.begin());
    narrow.resize(plain);
    std::transform(
        wide.begin(), special, narrow.begin(), [](char16_t c) { return static_cast<char>(c); });
    for (std::size_t i = plain; i < wide.size(); ++i) {
        const char16_t c = wide[i];
        narrow.push_back(CodePageByte(c));
        const bool pair = IsHighSurrogate(c) && i + 1 < wide.size() && IsLowSurrogate(wide[i + 1]);
        if (pair) {
            ++i;
        }
    }
}

std::string Narrow(const char16_t* wide) {
    std::string narrow;
    if (wide != nullptr) {
        NarrowInto(narrow, wide);
    }
    return narrow;
}

} // namespace Tarnex
