// SPDX-License-Identifier: MIT
// Text in columns.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// Rows of cells in UTF-8, printed so that the cells of a column are equally wide. The width of a
/// cell is the number of its characters.
class TextTable {
public:
    enum class Align { Left, Right };

    explicit TextTable(std::vector<Align> columns) : alignments(std::move(columns)) {}

    /// A row has as many cells as there are columns.
    void Add(std::vector<std::string> row) { rows.push_back(std::move(row)); }

    /// Prints each row as a line behind `indent` blanks, without blanks at its end.
    void Print(std::ostream& out, std::size_t indent) const;

private:
    std::vector<Align> alignments;
    std::vector<std::vector<std::string>> rows;
};

} // namespace Tarnex::Report
