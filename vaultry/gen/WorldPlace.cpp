// SPDX-License-Identifier: MIT
#include <vaultry/gen/WorldPlace.h>

#include <vaultry/foundation/Numeric.h>

namespace Tarnex {

namespace {

double CellStart(std::int32_t index, std::int32_t tileSize) {
    // In 64 bits: a place far out times a large cell is more than 32 hold.
    return static_cast<double>(std::int64_t{index} * tileSize);
}

} // namespace

Di3Point WorldPosition(const DiPos& pos,
                       const Di3Point& layoutOffset,
                       const Di3Point& local,
                       std::int32_t tileSize) {
    const double size = tileSize;
    // The order of the sums decides their last bit.
    const double x = CellStart(pos.x, tileSize) + local.x + size * layoutOffset.x;
    // Rows run south, but y runs north.
    const double y = local.y - (CellStart(pos.y, tileSize) + size * layoutOffset.y);
    // Pieces of one element may stand above each other; elements have no height of their own.
    const double z = size * layoutOffset.z + local.z;
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

float Radians(std::int32_t degrees) {
    return static_cast<float>(degrees * kRadiansPerDegree);
}

} // namespace Tarnex
