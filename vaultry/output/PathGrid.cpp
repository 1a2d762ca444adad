// SPDX-License-Identifier: MIT
#include <vaultry/output/PathGrid.h>

#include <array>
#include <ostream>

namespace Tarnex {

namespace {

constexpr std::uint32_t kDataBytes = 12;
constexpr std::uint32_t kPointBytes = 16;
constexpr std::uint32_t kWayBytes = 4;
// How finely the game's editor lays its own grids; nothing reads it in an interior.
constexpr std::uint32_t kGranularity = 1024;
// In the lowest byte behind a place; the number of ways is the next.
constexpr std::uint32_t kNotByHand = 1;

} // namespace

void PathGrid::Write(std::ostream& stream) {
    const auto count = static_cast<std::uint32_t>(points.size());
    std::uint32_t ways = 0;
    for (const PathPoint& point : points) {
        ways += static_cast<std::uint32_t>(point.ways.size());
    }
    const std::uint32_t pointBytes = count * kPointBytes;
    const std::uint32_t wayBytes = ways * kWayBytes;
    WriteRecordHeader(stream,
                      "PGRD",
                      kSubHeader + kDataBytes + kSubHeader + FieldLength(cell) +
                          (count > 0 ? kSubHeader + pointBytes : 0) +
                          (ways > 0 ? kSubHeader + wayBytes : 0));
    // An interior has no place in the grid of the world.
    WriteWords(stream, "DATA", std::array<std::uint32_t, 3>{0, 0, count << 16 | kGranularity});
    WriteText(stream, "NAME", cell);
    if (count > 0) {
        stream << "PGRP";
        WriteInt(stream, static_cast<std::int32_t>(pointBytes));
        for (const PathPoint& point : points) {
            WriteInt(stream, point.x);
            WriteInt(stream, point.y);
            WriteInt(stream, point.z);
            WriteInt(stream, static_cast<std::int32_t>(point.ways.size() << 8 | kNotByHand));
        }
    }
    if (ways > 0) {
        stream << "PGRC";
        WriteInt(stream, static_cast<std::int32_t>(wayBytes));
        for (const PathPoint& point : points) {
            for (const std::uint32_t to : point.ways) {
                WriteInt(stream, static_cast<std::int32_t>(to));
            }
        }
    }
}

} // namespace Tarnex
