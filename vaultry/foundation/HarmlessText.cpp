// SPDX-License-Identifier: MIT
#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Utf8.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Tarnex {

namespace {

constexpr char kInstead = '?';

struct CharacterRange {
    char32_t first;
    char32_t last;
};

constexpr std::array<CharacterRange, 7> kDangerous = {{
    {0x00, 0x1F},
    {0x7F, 0x9F},
    {0x061C, 0x061C},
    {0x200E, 0x200F},
    {0x2028, 0x2029},
    {0x202A, 0x202E},
    {0x2066, 0x2069},
}};

constexpr bool IsDangerous(char32_t c) {
    return std::ranges::any_of(kDangerous, [c](const CharacterRange& range) {
        return c >= range.first && c <= range.last;
    });
}

// Surrogates are malformed as UTF-8 already.
constexpr bool IsUnknownToXml(char32_t c) {
    return (c < 0x20 && c != '\t' && c != '\n' && c != '\r') || c == 0xFFFE || c == 0xFFFF;
}

// Hands each character over with the bytes that it consists of.
template <typename Visitor>
void ForEachCharacter(std::string_view utf8, Visitor visit) {
    while (!utf8.empty()) {
        const std::string_view before = utf8;
        const char32_t c = TakeUtf8(utf8);
        visit(c, before.substr(0, before.size() - utf8.size()));
    }
}

void AppendShown(std::string& text, char32_t c, std::string_view bytes) {
    if (c == kMalformed) {
        AppendUtf8(text, kReplacement);
    } else if (IsDangerous(c)) {
        text += kInstead;
    } else {
        text += bytes;
    }
}

void AppendMarkup(std::string& text, char32_t c, std::string_view bytes) {
    switch (c) {
    case '&':
        text += "&amp;";
        break;
    case '<':
        text += "&lt;";
        break;
    case '>':
        text += "&gt;";
        break;
    case '"':
        text += "&quot;";
        break;
    case '\n':
        text += '\n';
        break;
    default:
        if (c != kMalformed && IsUnknownToXml(c)) {
            text += kInstead;
        } else {
            AppendShown(text, c, bytes);
        }
    }
}

bool LooksLikeFormula(std::string_view cell) {
    return !cell.empty() && std::string_view("=+-@\t\r").find(cell[0]) != std::string_view::npos;
}

// All dangerous characters have four digits.
void AppendJsonEscape(std::string& text, char32_t c) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    text += "\\u";
    for (unsigned shift = 16; shift > 0;) {
        shift -= 4;
        text += kDigits[c >> shift & 0xF];
    }
}

// POSIX shells, PowerShell and the command prompt take a word in quotation marks for the same, but
// for what stands for something else within them in one of these. A backslash is one to them all
// while nothing follows that it could escape. PowerShell ends a word at curved quotation marks too.
bool IsSameInQuotes(std::string_view word) {
    constexpr std::array<std::string_view, 3> kCurved = {"\u201C", "\u201D", "\u201E"};
    const auto holds = [word](std::string_view part) {
        return word.find(part) != std::string_view::npos;
    };
    return word.find_first_of("$`\"!%") == std::string_view::npos && !holds("\\\\") &&
           !word.ends_with('\\') && std::ranges::none_of(kCurved, holds);
}

std::string InApostrophes(std::string_view word) {
    std::string quoted = "'";
    for (const char c : word) {
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return quoted + '\'';
}

void AppendOctal(std::string& text, std::string_view bytes) {
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += '\\';
        text += static_cast<char>('0' + (byte >> 6));
        text += static_cast<char>('0' + (byte >> 3 & 7));
        text += static_cast<char>('0' + (byte & 7));
    }
}

// Apostrophes as numbers too: a shell that takes "$" for a letter must find the same end.
std::string InDollarApostrophes(std::string_view word) {
    std::string quoted = "$'";
    ForEachCharacter(word, [&quoted](char32_t c, std::string_view bytes) {
        if (c == kMalformed || c == '\'' || c == '\\' || IsDangerous(c)) {
            AppendOctal(quoted, bytes);
        } else {
            quoted += bytes;
        }
    });
    return quoted + '\'';
}

bool CanBeShown(std::string_view utf8) {
    bool can = true;
    ForEachCharacter(utf8, [&can](char32_t c, std::string_view) {
        can = can && c != kMalformed && !IsDangerous(c);
    });
    return can;
}

// Zsh takes "=name" for the path of a command, PowerShell "@name" for the words of a variable.
bool IsPlainWord(std::string_view word) {
    return !word.empty() && word[0] != '=' && word[0] != '@' &&
           std::ranges::all_of(word, IsPlainInShell);
}

} // namespace

std::string ForTerminal(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    ForEachCharacter(utf8,
                     [&text](char32_t c, std::string_view bytes) { AppendShown(text, c, bytes); });
    return text;
}

std::string ForMarkup(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    ForEachCharacter(utf8,
                     [&text](char32_t c, std::string_view bytes) { AppendMarkup(text, c, bytes); });
    return text;
}

std::string ForTable(std::string_view utf8) {
    std::string text = (LooksLikeFormula(utf8) ? "'" : "") + ForTerminal(utf8);
    if (text.find_first_of("\",") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

std::string ForJson(std::string json) {
    std::string_view rest = json;
    std::string text;
    std::size_t harmless = 0; // bytes at the front of the rest that stay
    while (harmless < rest.size()) {
        std::string_view tail = rest.substr(harmless);
        // Below stand only the breaks between the lines of the document.
        const bool plain = static_cast<unsigned char>(tail.front()) < 0x7F;
        const char32_t c = plain ? U' ' : TakeUtf8(tail);
        if (plain || c == kMalformed || !IsDangerous(c)) {
            harmless = plain ? harmless + 1 : rest.size() - tail.size();
            continue;
        }
        text += rest.substr(0, harmless);
        AppendJsonEscape(text, c);
        rest = tail;
        harmless = 0;
    }
    // A document of many megabytes is not copied for nothing.
    return text.empty() ? std::move(json) : text.append(rest);
}

bool IsPlainInShell(char c) {
    constexpr std::string_view kSigns = "_-./:,+@=";
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           kSigns.find(c) != std::string_view::npos;
}

bool IsSameInEveryShell(std::string_view word) {
    return IsPlainWord(word) || (CanBeShown(word) && IsSameInQuotes(word));
}

std::string ForShell(std::string_view word) {
    if (IsPlainWord(word)) {
        return std::string(word);
    }
    if (!CanBeShown(word)) {
        return InDollarApostrophes(word);
    }
    return IsSameInQuotes(word) ? '"' + std::string(word) + '"' : InApostrophes(word);
}

std::string ForLog(std::string_view codePageText) {
    std::string text(codePageText);
    std::ranges::replace_if(
        text, [](char c) { return IsUnknownToXml(static_cast<unsigned char>(c)); }, kInstead);
    return text;
}

} // namespace Tarnex
