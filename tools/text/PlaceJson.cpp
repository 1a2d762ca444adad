// SPDX-License-Identifier: MIT
#include "tools/text/PlaceJson.h"

#include "tools/text/Words.h"

#include <charconv>

namespace Tarnex::Report {

namespace {

double NumberOf(const std::string& text) {
    double number = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

double RoundedDegrees(float radians) {
    return NumberOf(Number(Degrees(radians), 4));
}

} // namespace

double Widened(float value) {
    return NumberOf(ExactNumber(value));
}

Json PointJson(const Di3Point& point) {
    return Json::array({Widened(point.x), Widened(point.y), Widened(point.z)});
}

Json ArrivalJson(const Arrival& arrival) {
    return {{"cell", arrival.cell},
            {"position", PointJson(arrival.place)},
            {"degrees", arrival.facing},
            {"free", arrival.good},
            {"console", ConsoleLine(arrival)}};
}

Json ArrivalsJson(const std::vector<Arrival>& arrivals) {
    Json list = Json::array();
    for (const Arrival& arrival : arrivals) {
        list.push_back(ArrivalJson(arrival));
    }
    return list;
}

Json EntranceJson(const std::optional<MadeEntrance>& entrance) {
    if (!entrance) {
        return nullptr;
    }
    return {{"outside", ArrivalJson(entrance->outside)}, {"inside", ArrivalJson(entrance->inside)}};
}

Json DegreesJson(const Di3Point& radians) {
    return Json::array(
        {RoundedDegrees(radians.x), RoundedDegrees(radians.y), RoundedDegrees(radians.z)});
}

} // namespace Tarnex::Report
