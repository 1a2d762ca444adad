// SPDX-License-Identifier: MIT
// Reading meshes back, apart from how they are written.
#pragma once

#include <vaultry/foundation/Di3Point.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Test {

/// What a mesh file holds. `fault` is empty when it was read to its last byte.
struct NifContent {
    struct Shape {
        bool bars = false; ///< of what is bumped into, not drawn
        std::string texture;
        std::vector<Di3Point> vertices;
        std::vector<Di3Point> normals;
        std::vector<std::array<std::uint16_t, 3>> triangles;
    };

    std::string fault;
    std::vector<std::string> types; ///< of its blocks
    std::vector<Shape> shapes;
};

NifContent ReadNif(std::string_view bytes);

} // namespace Tarnex::Test
