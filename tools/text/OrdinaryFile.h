// SPDX-License-Identifier: MIT
// What may be read whole.
#pragma once

#include <cstdint>
#include <string>

namespace Tarnex::Report {

/// Larger files are refused. [bytes]
inline constexpr std::uint64_t kLargestFile = std::uint64_t{1} << 30;

/// The size of the file at `path` (UTF-8). Throws UsageError, which names the file, when it does
/// not exist, is no ordinary file, which a pipe or a device without an end would be, or is larger
/// than kLargestFile.
std::uint64_t RequireOrdinaryFile(const std::string& path);

} // namespace Tarnex::Report
