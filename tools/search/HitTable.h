// SPDX-License-Identifier: MIT
// Found dungeons as CSV files.
#pragma once

#include "tools/search/Ranking.h"

#include <cstdint>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Search {

/// Writes a line with the names of all facts and "command", then a line for each hit.
void WriteCsv(const std::vector<Hit>& hits, std::ostream& out);

/// Longer lines are refused, those with line ends within quotation marks included. [bytes]
inline constexpr std::size_t kLongestRow = std::size_t{1} << 20;

/// Reads what WriteCsv wrote, row by row. Whatever is wrong is a UsageError that names file and
/// line.
class HitReader {
public:
    /// Reads the heading. `in` must outlive the reader; `fileName` stands for it in messages. A
    /// fault of the disk is an std::ios_base::failure.
    HitReader(std::istream& in, std::string fileName);

    /// The next row; nothing after the last one.
    std::optional<Hit> Next();

    /// Says of the row that was read last what is wrong.
    [[noreturn]] void Refuse(const std::string& what) const;

private:
    using Fields = std::vector<std::string>;

    bool AtEnd() const;
    Fields NextFields();
    char Take();
    Hit ParseHit(const Fields& fields) const;

    std::streambuf& bytes; // a stream of its own would take a fault for the end
    std::string name;
    std::uint64_t line = 1;
    std::uint64_t start = 1; // of the present row
    std::size_t length = 0;  // of the present row [bytes]
};

} // namespace Tarnex::Search
