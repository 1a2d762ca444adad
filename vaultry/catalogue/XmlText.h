// SPDX-License-Identifier: MIT
// The parser's wide text and the library's narrow text.
#pragma once

#include <string>
#include <string_view>

namespace Tarnex {

/// UTF-16, as the parser delivers text, to Windows-1252; a character that the code page lacks, a
/// pair of surrogates and a lone one each become one "?". Replaces what `narrow` held.
void NarrowInto(std::string& narrow, std::u16string_view wide);

/// The same as a new string; null gives an empty one.
std::string Narrow(const char16_t* wide);

} // namespace Tarnex
