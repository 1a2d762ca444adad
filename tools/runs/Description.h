// SPDX-License-Identifier: MIT
// How a plug-in was made, as it says itself.
#pragma once

#include "tools/runs/RunLine.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Tarnex::Report {

/// What a plug-in is to say. A line that is longer than a description may be, or has letters that
/// the game lacks, goes into a file beside it.
struct Description {
    std::string header; ///< for Mod::SetDescription [Windows-1252]
    std::string beside; ///< what the file at PathBeside is to hold [UTF-8]; empty for none
};

/// Of a run from that seed. The request has the stamp that was used.
Description DescriptionOf(const RunRequest& request, std::uint32_t seed);

/// The file beside a plug-in; both UTF-8.
std::string PathBeside(const std::string& plugin);

/// Whether a description (UTF-8) says that the line stands in a file beside the plug-in.
bool StandsBeside(std::string_view description);

/// The line that makes the plug-in again, from a description or the file beside it (UTF-8); empty
/// when there is none, or one that is kept back. It is put together anew from what was understood
/// of it: whoever wrote the file, it can be pasted.
std::string CommandIn(std::string_view description);

/// Whether there is such a line, but one that not every shell reads alike: what is a word to one
/// may be a command to another.
bool IsKeptBack(std::string_view description);

/// What the file beside a plug-in says, empty when it cannot be read. The path is UTF-8.
std::string DescriptionBeside(const std::string& plugin);

/// Throws FileError when a file stands beside a plug-in, at a path in UTF-8, that is of somebody
/// else: it must not be replaced.
void RequireFreeBeside(const std::string& plugin);

} // namespace Tarnex::Report
