// SPDX-License-Identifier: MIT
#include "tools/text/Words.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Numeric.h>

#include <array>
#include <charconv>

namespace Tarnex::Report {

namespace {

constexpr std::size_t kMostShown = 80;
constexpr std::string_view kMore = "...";

} // namespace

std::string Shown(std::string_view codePageText) {
    std::string text(codePageText);
    if (text.size() > kMostShown) {
        text.resize(kMostShown - kMore.size());
        text += kMore;
    }
    return ForTerminal(ToUtf8(text));
}

std::string Quoted(std::string_view codePageText) {
    return '"' + Shown(codePageText) + '"';
}

std::string Counted(std::uint64_t count, std::string_view noun) {
    return std::to_string(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

std::string Number(double value, int decimals) {
    std::array<char, 400> digits{}; // the largest double has 309 digits before its point
    const auto [end, fault] = std::to_chars(
        digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
    std::string text(digits.data(), end);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') {
            text.pop_back();
        }
    }
    return text == "-0" ? "0" : text;
}

std::string ExactNumber(float value) {
    std::array<char, 32> digits{};
    const auto [end, fault] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    const std::string text(digits.data(), end);
    return text == "-0" ? "0" : text;
}

std::string RefNumber(const PluginRef& ref) {
    constexpr unsigned kMasterShift = 24;
    const std::uint32_t master = ref.index >> kMasterShift;
    const std::string number = std::to_string(ref.index & ((1U << kMasterShift) - 1));
    return master == 0 ? number : std::to_string(master) + ':' + number;
}

const char* SortWord(RefSort sort) {
    static constexpr std::array<const char*, kRefSorts> kSortWords = {"marker",
                                                                      "tile",
                                                                      "door",
                                                                      "platform",
                                                                      "container",
                                                                      "creature",
                                                                      "furniture",
                                                                      "rug",
                                                                      "tapestry",
                                                                      "other"};
    return kSortWords.at(static_cast<std::size_t>(sort));
}

double Degrees(float radians) {
    return static_cast<double>(radians) / kRadiansPerDegree;
}

std::string PointWords(const Di3Point& point) {
    return '(' + ExactNumber(point.x) + ", " + ExactNumber(point.y) + ", " + ExactNumber(point.z) +
           ')';
}

std::string ColorWords(PluginColor color) {
    return std::to_string(color & 0xFF) + ' ' + std::to_string(color >> 8 & 0xFF) + ' ' +
           std::to_string(color >> 16 & 0xFF);
}

std::string TagWords(const PluginTagCounts& counts) {
    std::string text;
    for (const auto& [tag, count] : counts) {
        text += text.empty() ? "" : ", ";
        text += tag + ' ' + std::to_string(count);
    }
    return text;
}

std::uint64_t Total(const PluginTagCounts& counts) {
    std::uint64_t total = 0;
    for (const auto& entry : counts) {
        total += entry.second;
    }
    return total;
}

std::string TypeWords(std::uint32_t type) {
    switch (type) {
    case 0:
        return "plug-in";
    case 1:
        return "master";
    case 32:
        return "saved game";
    default:
        return "file of type " + std::to_string(type);
    }
}

} // namespace Tarnex::Report
