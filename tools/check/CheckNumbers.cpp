// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace Tarnex::Report {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of("0123456789", at), text.size());
}

// Whether all of the text is a number; the loader takes what it can of the beginning.
bool IsNumber(std::string_view text, ValueKind kind) {
    const std::size_t start = std::min(text.find_first_not_of(kBlanks), text.size());
    text = text.substr(start, text.find_last_not_of(kBlanks) + 1 - start);
    std::size_t at = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    const std::size_t whole = SkipDigits(text, at);
    std::size_t digits = whole - at;
    at = whole;
    if (kind == ValueKind::Real && text.substr(at).starts_with('.')) {
        const std::size_t end = SkipDigits(text, at + 1);
        digits += end - (at + 1);
        at = end;
    }
    const std::size_t mark = text.find_first_of("eE", at);
    if (kind == ValueKind::Real && digits > 0 && mark == at) {
        const std::size_t sign = text.find_first_of("+-", at + 1) == at + 1 ? 1 : 0;
        const std::size_t end = SkipDigits(text, at + 1 + sign);
        at = end > at + 1 + sign ? end : at;
    }
    return digits > 0 && at == text.size();
}

std::string Shortest(double number) {
    if (std::isinf(number)) {
        return number > 0 ? "infinity" : "-infinity";
    }
    std::array<char, 64> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(number)).ptr;
    return {digits.data(), end};
}

std::string AsRead(const std::string& text, ValueKind kind) {
    return kind == ValueKind::Whole
               ? std::to_string(ParseInt(text))
               : Shortest(static_cast<double>(static_cast<float>(ParseReal(text))));
}

// A number when a comma stands for its point, else what is read of its beginning.
std::string Meant(const std::string& text, ValueKind kind) {
    std::string pointed = text;
    std::ranges::replace(pointed, ',', '.');
    if (IsNumber(pointed, kind)) {
        return pointed;
    }
    return text.find_first_of("0123456789") == 0 ? AsRead(text, kind) : "";
}

bool IsTooLarge(const std::string& text, ValueKind kind) {
    const double exact = ParseReal(text);
    return kind == ValueKind::Whole
               ? exact != static_cast<double>(ParseInt(text))
               : std::abs(exact) > static_cast<double>(std::numeric_limits<float>::max());
}

void CheckSyntax(const ConfigAttribute& attribute, ValueKind kind, Findings& findings) {
    const bool number = IsNumber(attribute.value, kind);
    if (number && !IsTooLarge(attribute.value, kind)) {
        return;
    }
    const char* complaint = kind == ValueKind::Whole ? " is no whole number" : " is no number";
    findings.Add(Weight::Warning,
                 attribute.place,
                 attribute.name + ' ' + InQuotes(attribute.value) +
                     (number ? " is too large" : complaint),
                 "It is read as " + AsRead(attribute.value, kind) + '.',
                 number ? "" : Meant(attribute.value, kind));
}

std::string Outside(const Bounds& bounds) {
    return std::isinf(bounds.most)
               ? " is less than " + Shortest(bounds.least)
               : " lies outside " + Shortest(bounds.least) + " to " + Shortest(bounds.most);
}

// A chance in hundredths is a common slip. What is little more than 1 was meant to be less.
std::string Fraction(const AttributeFormat& format, double value) {
    constexpr double kHundred = 100;
    constexpr double kMostUnits = 2;
    if (format.name == Attrib_ZRotate) {
        return Shortest(std::fmod(value, 360));
    }
    if (format.name == Attrib_Chance && value > 1 && value <= kMostUnits) {
        return "1";
    }
    const bool hundredths = format.name == Attrib_Chance && value > 1 && value <= kHundred;
    return hundredths ? Shortest(value / kHundred) : "";
}

void CheckRange(const ConfigAttribute& attribute,
                const AttributeFormat& format,
                Findings& findings) {
    const Bounds& bounds = format.bounds;
    const double value = ParseReal(attribute.value);
    const bool told = IsTooLarge(attribute.value, format.kind);
    if (!told && (value < bounds.least || value > bounds.most)) {
        findings.Add(Weight::Warning,
                     attribute.place,
                     attribute.name + ' ' + InQuotes(attribute.value) + Outside(bounds),
                     bounds.otherwise,
                     Fraction(format, value));
    }
}

} // namespace

void CheckNumbers(const ConfigTree& tree, Findings& findings) {
    for (const ConfigElement& element : tree.All()) {
        for (const ConfigAttribute& attribute : element.attributes) {
            const AttributeFormat* format = FindFormat(element, attribute.name);
            if (format != nullptr && format->initial != nullptr) {
                CheckSyntax(attribute, format->kind, findings);
                CheckRange(attribute, *format, findings);
            }
        }
    }
}

} // namespace Tarnex::Report
