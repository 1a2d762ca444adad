// SPDX-License-Identifier: MIT
// Reading a plug-in file, whoever wrote it.
#pragma once

#include <vaultry/foundation/Export.h>
#include <vaultry/output/PluginFile.h>

#include <string_view>

namespace Tarnex {

/// No more findings than these are kept of one file.
inline constexpr std::size_t kMostPluginFindings = 1000;

/// Reads the bytes of a plug-in. Every size is checked against the bytes that are there; what does
/// not fit is told in the findings, which are ASCII, and reading goes on behind it as long as it is
/// certain where the next record begins. Records and sub-records that are not known are skipped and
/// counted. Exterior cells are counted, and nothing but their teleporting doors is kept. Only the
/// form is judged here, not whether the content makes sense. Throws nothing but std::bad_alloc; the
/// bytes are needed during the call only.
///
/// @code
/// const Tarnex::PluginFile file = Tarnex::ReadPlugin(bytes);
/// for (const Tarnex::PluginCell& cell : file.cells) {
///     std::cout << cell.name << ": " << cell.refs.size() << " references\n";
/// }
/// @endcode
///
/// Any thread may read; nothing is shared or logged.
VAULTRY_API PluginFile ReadPlugin(std::string_view bytes);

} // namespace Tarnex
