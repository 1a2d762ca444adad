// SPDX-License-Identifier: MIT
#include "tools/stage/Texture.h"

#include "tools/stage/Bytes.h"

namespace Tarnex::Report {

std::string TextureFile(const SurfaceLook& look) {
    constexpr std::uint32_t kEdge = 64;      // [pixels]
    constexpr std::uint32_t kLine = 2;       // likewise
    constexpr std::uint32_t kGrain = 9;      // differences of brightness
    constexpr std::uint32_t kParts = 0x100F; // size, pitch and form of a pixel are given
    constexpr std::uint32_t kBytes = 4;
    constexpr std::uint32_t kColoured = 0x41; // with alpha
    constexpr std::uint32_t kTexture = 0x1000;
    Bytes bytes;
    bytes.Letters("DDS ").U32s({124, kParts, kEdge, kEdge, kEdge * kBytes, 0, 0}).Fill(44);
    bytes.U32s({32, kColoured, 0, 32, 0xFF0000, 0xFF00, 0xFF, 0xFF000000});
    bytes.U32s({kTexture, 0, 0, 0, 0});
    for (std::uint32_t y = 0; y < kEdge; ++y) {
        for (std::uint32_t x = 0; x < kEdge; ++x) {
            const bool line = x < kLine || y < kLine;
            for (const int channel : {2, 1, 0}) {
                const std::uint32_t full = look.color.at(static_cast<std::size_t>(channel));
                bytes.U8(line ? full / 2 : full - full / 32 * ((x * 13 + y * 7) % kGrain) / kGrain);
            }
            bytes.U8(0xFF);
        }
    }
    return bytes.Text();
}

} // namespace Tarnex::Report
