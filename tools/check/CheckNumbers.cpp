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
constexpr double kEndless = std::numeric_limits<double>::infinity();

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

// What is left of a number when a comma stands for the point.
std::string WithPoint(std::string text, ValueKind kind) {
    std::ranges::replace(text, ',', '.');
    return IsNumber(text, kind) ? text : "";
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
                 number ? "" : WithPoint(attribute.value, kind));
}

// The numbers that make sense.
struct RangeRow {
    ElementClass element;
    std::string_view attribute;
    double least;
    double most;
    const char* meaning;
};

constexpr const char* kTurned = "It is placed as if it reached the other way.";

// clang-format off
constexpr std::array<RangeRow, 17> kRanges = {{
    // element                    attribute           least  most      what it means
    {ElementClass::TileSet,       Tile_TsSize,        1,     kEndless, "The cells of a level lie one upon the other, or mirrored."},
    {ElementClass::TileSet,       Tile_WallThickness, 0,     kEndless, "What stands along walls is moved into them."},
    {ElementClass::Tile,          Attrib_Scale,       0.5,   2,        "The game shows it at the nearer of 0.5 and 2."},
    {ElementClass::PlatformTile,  Attrib_SizeX,       0,     kEndless, "No floor is laid."},
    {ElementClass::PlatformTile,  Attrib_SizeY,       0,     kEndless, "No floor is laid."},
    {ElementClass::PlatformTile,  Attrib_SizeZ,       0,     kEndless, kTurned},
    {ElementClass::Theme,         Attrib_Level,       0,     kEndless, "Random levels choose it only when no theme fits."},
    {ElementClass::ThemeItem,     Attrib_Min,         -1,    kEndless, "It counts as 0."},
    {ElementClass::ThemeItem,     Attrib_Chance,      0,     1,        "Above 1 it counts as 1, below 0 as 0."},
    {ElementClass::ThemeItem,     Attrib_Ratio,       0,     kEndless, "Without a Max the item places nothing."},
    {ElementClass::Content,       Attrib_Max,         1,     kEndless, "It counts as 1."},
    {ElementClass::Content,       Attrib_Level,       0,     kEndless, "It is kept as it is."},
    {ElementClass::Content,       Attrib_Value,       0,     kEndless, "It counts as worthless."},
    {ElementClass::Content,       Attrib_Weight,      0,     kEndless, "It makes room in containers instead of taking it."},
    {ElementClass::Content,       Attrib_SizeX,       0,     kEndless, kTurned},
    {ElementClass::Content,       Attrib_SizeY,       0,     kEndless, kTurned},
    {ElementClass::Content,       Attrib_SizeZ,       0,     kEndless, kTurned},
}};
// clang-format on

std::string Outside(const RangeRow& row) {
    return row.most == kEndless
               ? " is less than " + Shortest(row.least)
               : " lies outside " + Shortest(row.least) + " to " + Shortest(row.most);
}

// A chance in hundredths is a common slip.
std::string Fraction(const RangeRow& row, double value) {
    constexpr double kHundred = 100;
    const bool hundredths = row.attribute == Attrib_Chance && value > 1 && value <= kHundred;
    return hundredths ? Shortest(value / kHundred) : "";
}

void CheckRange(const ConfigAttribute& attribute, ElementClass element, Findings& findings) {
    for (const RangeRow& row : kRanges) {
        if (row.element != element || !EqualsNoCase(attribute.name, row.attribute)) {
            continue;
        }
        const double value = ParseReal(attribute.value);
        if (value < row.least || value > row.most) {
            findings.Add(Weight::Warning,
                         attribute.place,
                         attribute.name + ' ' + InQuotes(attribute.value) + Outside(row),
                         row.meaning,
                         Fraction(row, value));
        }
    }
}

} // namespace

void CheckNumbers(const ConfigTree& tree, Findings& findings) {
    for (const ConfigElement& element : tree.All()) {
        const ElementClass elementClass = tree.ClassOf(element);
        for (const ConfigAttribute& attribute : element.attributes) {
            for (const AttributeFormat& format : AttributesOf(elementClass)) {
                const bool numeric =
                    format.kind == ValueKind::Whole || format.kind == ValueKind::Real;
                if (numeric && EqualsNoCase(attribute.name, format.name)) {
                    CheckSyntax(attribute, format.kind, findings);
                    CheckRange(attribute, elementClass, findings);
                }
            }
        }
    }
}

} // namespace Tarnex::Report
