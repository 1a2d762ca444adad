// SPDX-License-Identifier: MIT
// How numbers and names of a plug-in are put into words, the same in every locale.
#pragma once

#include <vaultry/output/PluginFile.h>
#include <vaultry/output/Ref.h>

#include <string>
#include <string_view>

namespace Tarnex::Report {

/// A name of the file (Windows-1252) as it is shown to people: UTF-8, harmless on a terminal, and
/// no more than 80 characters.
std::string Shown(std::string_view codePageText);

/// Likewise, in quotation marks.
std::string Quoted(std::string_view codePageText);

/// "1 door", "2 doors".
std::string Counted(std::uint64_t count, std::string_view noun);

/// With at most `decimals` decimals, without zeros at the end.
std::string Number(double value, int decimals = 2);

/// The shortest text that stands for exactly this value.
std::string ExactNumber(float value);

/// A reference's number: "7", or "2:7" for number 7 of the second master.
std::string RefNumber(const PluginRef& ref);

/// The word of a sort of reference in reports.
const char* SortWord(RefSort sort);

/// Radians as degrees.
double Degrees(float radians);

/// "(1, 2.5, -3)".
std::string PointWords(const Di3Point& point);

/// "71 71 71": red, green, blue.
std::string ColorWords(PluginColor color);

/// "LIGH 1, STAT 2".
std::string TagWords(const PluginTagCounts& counts);

/// The sum of all counts.
std::uint64_t Total(const PluginTagCounts& counts);

/// What kind of file the header's type stands for.
std::string TypeWords(std::uint32_t type);

} // namespace Tarnex::Report
