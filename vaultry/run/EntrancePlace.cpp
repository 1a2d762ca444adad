// SPDX-License-Identifier: MIT
#include <vaultry/run/EntrancePlace.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace Tarnex {

namespace {

constexpr std::int32_t kRound = 360;

std::vector<std::string_view> Fields(std::string_view text) {
    std::vector<std::string_view> fields;
    for (;;) {
        const std::size_t comma = text.find(',');
        fields.push_back(text.substr(0, comma));
        if (comma == std::string_view::npos) {
            return fields;
        }
        text.remove_prefix(comma + 1);
    }
}

template <typename Number>
bool Reads(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [rest, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc() && rest == end;
}

// What is not a number is too far out as well.
bool ReadsCoordinate(std::string_view text, double& number) {
    return Reads(text, number) && std::abs(number) <= kFarthestEntrance;
}

bool ReadsAngle(std::string_view text, std::int32_t& angle) {
    return Reads(text, angle) && std::abs(std::int64_t{angle}) <= kRound;
}

std::string Shortest(double number) {
    std::array<char, 32> digits{};
    // -0 would be another text for the same place.
    const double shown = number == 0.0 ? 0.0 : number;
    const auto [end, fault] = std::to_chars(
        digits.data(), digits.data() + digits.size(), shown, std::chars_format::fixed);
    return {digits.data(), end};
}

} // namespace

std::string ReadPlace(std::string_view text, EntrancePlace& place) {
    const std::vector<std::string_view> fields = Fields(text);
    EntrancePlace read;
    if (fields.size() < 2 || fields.size() > 4) {
        return "is not X,Y or X,Y,Z or X,Y,Z,ANGLE; Z may be empty, for the height of the land";
    }
    const bool isPlace = ReadsCoordinate(fields[0], read.x) && ReadsCoordinate(fields[1], read.y);
    const bool hasHeight = fields.size() > 2 && !fields[2].empty();
    if (!isPlace || (hasHeight && !ReadsCoordinate(fields[2], read.z.emplace()))) {
        return "has a number that is none, or lies beyond 4194304 units";
    }
    if (fields.size() > 3 && !ReadsAngle(fields[3], read.angle)) {
        return "has an angle that is not a whole number from -360 to 360";
    }
    read.angle = (read.angle + kRound) % kRound;
    place = read;
    return {};
}

std::string TextOf(const EntrancePlace& place) {
    std::string text = Shortest(place.x) + ',' + Shortest(place.y);
    if (place.z || place.angle != 0) {
        text += ',' + (place.z ? Shortest(*place.z) : std::string());
    }
    return place.angle == 0 ? text : text + ',' + std::to_string(place.angle);
}

} // namespace Tarnex
