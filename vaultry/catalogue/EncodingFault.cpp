// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/EncodingFault.h>

#include <vaultry/foundation/Text.h>
#include <vaultry/foundation/Utf8.h>

namespace Tarnex {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kLongestFirstLine = 512;

// What is ASCII of a document of two bytes to a character.
std::string Narrowed(std::string_view wide) {
    std::string text;
    for (const char c : wide.substr(0, kLongestFirstLine)) {
        if (c > 0) {
            text += c;
        }
    }
    return text;
}

bool IsWide(std::string_view document) {
    return document.starts_with("\xFF\xFE"sv) || document.starts_with("\xFE\xFF"sv) ||
           document.starts_with("<\0"sv) || document.starts_with("\0<"sv);
}

std::optional<EncodingFault> FindInWide(std::string_view document) {
    const std::string text = Narrowed(document);
    const std::string_view declared = DeclaredEncoding(text);
    if (declared.empty() || ToUpper(declared).find("UTF-8") == std::string::npos) {
        return std::nullopt;
    }
    const auto column = static_cast<std::uint64_t>(declared.data() - text.data()) + 1;
    return EncodingFault{std::string(declared), true, 0, {1, column}};
}

std::optional<EncodingFault> FindInUtf8(std::string_view document) {
    DocumentPlace place{1, 1};
    while (!document.empty()) {
        const auto first = static_cast<unsigned char>(document.front());
        if (TakeUtf8(document) == kMalformed) {
            return EncodingFault{"UTF-8", false, first, place};
        }
        ++place.column;
        if (first == '\n') {
            ++place.line;
            place.column = 1;
        }
    }
    return std::nullopt;
}

} // namespace

std::string_view DeclaredEncoding(std::string_view document) {
    constexpr std::string_view kKey = "encoding";
    const std::string_view head = document.substr(0, document.find("?>"));
    const std::size_t key = head.starts_with("<?xml") ? head.find(kKey) : head.npos;
    const std::size_t start = key == head.npos ? head.npos : head.find_first_of("\"'", key);
    if (start == head.npos) {
        return {};
    }
    const std::string_view name = head.substr(start + 1);
    return name.substr(0, name.find_first_of("\"'"));
}

std::optional<EncodingFault> FindEncodingFault(std::string_view document) {
    if (IsWide(document)) {
        return FindInWide(document);
    }
    if (document.starts_with("\xEF\xBB\xBF"sv)) {
        document.remove_prefix(3);
    }
    const std::string declared = ToUpper(DeclaredEncoding(document));
    const bool utf8 = declared.empty() || declared == "UTF-8" || declared == "UTF8";
    return utf8 ? FindInUtf8(document) : std::nullopt;
}

} // namespace Tarnex
