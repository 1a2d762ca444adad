// SPDX-License-Identifier: MIT
#include "cli/ExitStatus.h"

#include <array>
#include <cstddef>

namespace Tarnex::Cli {

namespace {

struct Row {
    const char* word;
    ExitStatus status;
};

// In the order of Ending.
constexpr std::array<Row, 8> kRows = {{
    {"written", ExitStatus::Success},
    {"drawn", ExitStatus::Success},
    {"refused", ExitStatus::Failure},
    {"not-written", ExitStatus::Failure},
    {"strict", ExitStatus::Failure},
    {"unwalkable", ExitStatus::Failure},
    {"unclosed", ExitStatus::Failure},
    {"cancelled", ExitStatus::Canceled},
}};

const Row& RowOf(Ending ending) {
    return kRows.at(static_cast<std::size_t>(ending));
}

} // namespace

const char* WordOf(Ending ending) {
    return RowOf(ending).word;
}

ExitStatus StatusOf(Ending ending) {
    return RowOf(ending).status;
}

} // namespace Tarnex::Cli
