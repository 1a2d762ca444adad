// SPDX-License-Identifier: MIT
// The pages of the documentation, taken apart.
#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Test {

/// A block of code: what its fence says of it, the sentence before it, its lines.
struct CodeBlock {
    std::string kind;
    std::string before;
    std::vector<std::string> lines;

    /// The lines with those continued by a backslash joined.
    std::vector<std::string> Commands() const;
    /// The file that "Save this as `name`:" asks for; empty when it does not.
    std::string SavedName() const;
    /// The file that "Put this into `name`, before its last line:" names; empty when it does not.
    std::string ExtendedName() const;
    std::string Text() const;
};

/// What a command of a block of the kind "console" prints: the lines below "$ command".
struct Session {
    std::string command;
    std::vector<std::string> printed;

    /// Whether these lines are as shown, where "..." stands for any number of them.
    bool Shows(const std::vector<std::string>& lines) const;
};

std::vector<Session> Sessions(const CodeBlock& block);

/// The command with the program in place of what readers call it by, also inside a loop; empty for
/// other commands. A pager shows what it gets; whether it is there is not the program's concern.
std::string ProgramCommand(const std::string& line);

/// A page as a file of the project.
struct Page {
    std::filesystem::path path;

    std::vector<CodeBlock> Blocks() const;
    /// The lines outside of blocks of code.
    std::vector<std::string> Prose() const;
    /// The targets of all links and pictures, in order.
    std::vector<std::string> Links() const;
    /// The names by which links lead to its headings.
    std::vector<std::string> Anchors() const;

    friend void PrintTo(const Page& page, std::ostream* out) { *out << page.path.filename(); }
};

/// README.md, CONTRIBUTING.md and those in docs/, sorted.
std::vector<Page> Pages();

} // namespace Tarnex::Test
