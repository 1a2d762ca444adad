// SPDX-License-Identifier: MIT
// Windows-1252, the game's code page, which all narrow text of the library is in.
#pragma once

#include <vaultry/foundation/Export.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex {

/// The byte of a character in Windows-1252, or '?' when the code page lacks it (the five bytes it
/// leaves unassigned and everything beyond U+FFFF included).
VAULTRY_API char CodePageByte(char32_t character);

/// UTF-8 to Windows-1252. A character that the code page lacks and each malformed byte becomes one
/// "?"; `lost`, when given, is set to whether that happened. The game shows a player what stands
/// there then, so front ends refuse names that would lose letters; see MissingFromCodePage.
VAULTRY_API std::string FromUtf8(std::string_view utf8, bool* lost = nullptr);

/// The characters of a text (UTF-8) that the code page lacks, each once, in order and in UTF-8;
/// U+FFFD stands for malformed bytes.
VAULTRY_API std::vector<std::string> MissingFromCodePage(std::string_view utf8);

/// Windows-1252 to UTF-8; the five unassigned bytes become U+FFFD. The answer is valid UTF-8
/// whatever comes in.
VAULTRY_API std::string ToUtf8(std::string_view codePageText);

/// A file path given in UTF-8, as this platform wants it.
VAULTRY_API std::filesystem::path PathFromUtf8(std::string_view utf8);

} // namespace Tarnex
