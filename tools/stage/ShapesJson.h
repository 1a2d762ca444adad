// SPDX-License-Identifier: MIT
// The shapes of a stage for other front ends.
#pragma once

#include "tools/stage/StagePlan.h"

#include <string>

namespace Tarnex::Report {

/// Everything on a stage that has a shape, as triangles: an object with "surfaces" (name and color
/// of each) and "shapes". A shape has "id" and "sort", "known" (see Known; null where nothing gives
/// its size), "vertices" (x, y, z of each, in world units from where a reference of it stands),
/// "triangles" (three numbers of vertices each, counter-clockwise from the drawn side) and
/// "surfaces" (the number of one for each triangle).
std::string ShapesJson(const StagePlan& stage);

} // namespace Tarnex::Report
