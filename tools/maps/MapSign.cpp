// SPDX-License-Identifier: MIT
#include "tools/maps/MapSign.h"

#include "tools/plugins/PluginIndex.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace Tarnex::Report {

namespace {

bool LiesFlat(std::string_view id, const Di3Point& size) {
    const float side = std::min(std::abs(size.x), std::abs(size.y));
    if (side > 0.0F) {
        return std::abs(size.z) <= side / 4.0F;
    }
    const std::string upper = ToUpper(id);
    return upper.find("RUG") != std::string::npos || upper.find("CARPET") != std::string::npos;
}

MapSign FurnishingSign(RefSort sort, std::string_view id, const Di3Point& size) {
    if (IsLightId(id)) {
        return MapSign::Light;
    }
    if (sort == RefSort::Furniture || sort == RefSort::Tapestry) {
        return sort == RefSort::Furniture ? MapSign::Furniture : MapSign::Tapestry;
    }
    if (sort != RefSort::Rug) {
        return MapSign::Other;
    }
    const bool known = size.x != 0.0F && size.y != 0.0F;
    return LiesFlat(id, size) ? MapSign::Rug : known ? MapSign::Furniture : MapSign::Other;
}

} // namespace

MapSign SignOf(RefSort sort, std::string_view id, const Di3Point& size) {
    switch (sort) {
    case RefSort::Container:
        return MapSign::Container;
    case RefSort::Creature:
        return MapSign::Creature;
    case RefSort::Door:
        return MapSign::Door;
    default:
        return FurnishingSign(sort, id, size);
    }
}

} // namespace Tarnex::Report
