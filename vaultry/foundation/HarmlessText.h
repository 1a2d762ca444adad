// SPDX-License-Identifier: MIT
// Names, paths and tables come from strangers. What they hold could drive a terminal, forge a line
// of a log, swap the order of what is read, run as a formula or as a command, or break a document.
// Each of these functions makes a text harmless for one kind of reader; whatever leaves the program
// goes through the one that fits.
//
// Characters count as dangerous if they are control characters (C0, DEL, C1), ends of lines or
// paragraphs, or marks that turn the direction of text (U+061C, 200E, 200F, 202A to 202E, 2066 to
// 2069).
#pragma once

#include <vaultry/foundation/Export.h>

#include <string>
#include <string_view>

namespace Tarnex {

/// A part of a line on a terminal: dangerous characters become "?", malformed bytes U+FFFD.
VAULTRY_API std::string ForTerminal(std::string_view utf8);

/// A text or the value of an attribute in SVG and HTML: likewise, but line feeds, which are blanks
/// there, stay; what XML does not allow becomes "?", and what stands for markup is escaped.
VAULTRY_API std::string ForMarkup(std::string_view utf8);

/// A cell of a CSV table, in quotation marks where they are needed: like on a terminal, and an
/// apostrophe precedes what spreadsheets would take for a formula. Numbers are no text: they are
/// written as they are.
VAULTRY_API std::string ForTable(std::string_view utf8);

/// A whole JSON text, of which the escapes that JSON demands are made: the other dangerous
/// characters in its strings are escaped too, so that it stands for the same as before.
VAULTRY_API std::string ForJson(std::string json);

/// A word of a command line: in quotation marks for POSIX shells, PowerShell and the command prompt
/// alike; where these differ, in apostrophes for the former. What has dangerous characters needs a
/// shell that knows $'...' and is another word, but no other command, for one that does not.
VAULTRY_API std::string ForShell(std::string_view word);

/// Whether these shells take what ForShell makes of the word for that word alike, so that it can be
/// pasted into any of them whoever wrote it.
VAULTRY_API bool IsSameInEveryShell(std::string_view word);

/// Whether a byte stands for itself in every shell, in any word that begins with neither "=" nor
/// "@".
VAULTRY_API bool IsPlainInShell(char c);

/// A line of the log, in the game's code page, where 80 to 9F are letters: what XML 1.0 does not
/// allow becomes "?". What comes from a configuration in XML 1.0 stays as it is to the byte.
std::string ForLog(std::string_view codePageText);

} // namespace Tarnex
