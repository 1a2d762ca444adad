// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/XmlText.h>

#include <vaultry/foundation/CodePage.h>

namespace Tarnex {

namespace {

constexpr bool IsHighSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool IsLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

} // namespace

void NarrowInto(std::string& narrow, std::u16string_view wide) {
    narrow.clear();
    narrow.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const char16_t c = wide[i];
        narrow.push_back(c < 0x80 ? static_cast<char>(c) : CodePageByte(c));
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
