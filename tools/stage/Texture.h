// SPDX-License-Identifier: MIT
// Pictures of surfaces.
#pragma once

#include "tools/stage/Shape.h"

#include <string>

namespace Tarnex::Report {

/// A small picture in that colour, as DDS: darker lines along its edges show sizes and slopes.
std::string TextureFile(const SurfaceLook& look);

} // namespace Tarnex::Report
