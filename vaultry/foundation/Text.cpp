// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace Tarnex {

namespace {

constexpr char UpperOf(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Cuts leading white space and a sign off `text`; tells whether the sign was a minus.
bool TakeSign(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    return negative;
}

bool StartsNumber(std::string_view text) {
    const std::size_t first = text.starts_with('.') ? 1 : 0;
    return first < text.size() && IsDigit(text[first]);
}

// A number that no double can hold is either too large or too close to 0; the position of its
// first digit that is not 0, shifted by the exponent, tells which.
double OutOfRangeReal(std::string_view number) {
    const std::size_t mark = number.find_first_of("eE");
    const std::string_view digits = number.substr(0, mark);
    const std::int64_t exponent =
        mark == std::string_view::npos ? 0 : ParseInt(number.substr(mark + 1));
    const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
    const auto first =
        static_cast<std::int64_t>(std::min(digits.find_first_of("123456789"), digits.size()));
    return point - first + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

} // namespace

std::string ToUpper(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperOf);
    return upper;
}

// Most names are written in the case expected: the first test spares the others.
bool EqualsNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return x == y || UpperOf(x) == UpperOf(y);
    });
}

std::int32_t ParseInt(std::string_view text) {
    constexpr std::int64_t kMin = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
    const bool negative = TakeSign(text);
    std::int64_t value = 0;
    for (const char c : text) {
        if (!IsDigit(c)) {
            break;
        }
        value = std::min(value * 10 + (c - '0'), kMax + 1);
    }
    return static_cast<std::int32_t>(std::clamp(negative ? -value : value, kMin, kMax));
}

double ParseReal(std::string_view text) {
    const bool negative = TakeSign(text);
    if (!StartsNumber(text)) {
        return 0.0;
    }
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc::result_out_of_range) {
        const auto length = static_cast<std::size_t>(stop - text.data());
        value = OutOfRangeReal(text.substr(0, length));
    }
    return negative ? -value : value;
}

std::vector<std::string_view> SplitList(std::string_view text) {
    std::vector<std::string_view> names;
    std::size_t start = text.find_first_not_of(kListSeparators);
    while (start != std::string_view::npos) {
        const std::size_t end = text.find_first_of(kListSeparators, start);
        names.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(kListSeparators, end);
    }
    return names;
}

std::string JoinWords(const std::vector<std::string>& words, std::string_view between) {
    std::string text;
    for (const std::string& word : words) {
        text += text.empty() ? std::string_view() : between;
        text += word;
    }
    return text;
}

} // namespace Tarnex
