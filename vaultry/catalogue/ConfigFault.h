// SPDX-License-Identifier: MIT
// Why the rest of a configuration is missing.
#pragma once

#include <cstdint>
#include <string>

namespace Tarnex {

/// What a document was not read beyond.
struct ConfigFault {
    std::uint64_t line = 0;   ///< from 1; 0 when the fault has no place
    std::uint64_t column = 0; ///< likewise
    std::string message;      ///< the parser's words, or those of a limit [Windows-1252]
};

} // namespace Tarnex
