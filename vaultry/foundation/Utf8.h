// SPDX-License-Identifier: MIT
// UTF-8 character by character.
#pragma once

#include <string>
#include <string_view>

namespace Tarnex {

/// Stands for a byte that begins no character.
inline constexpr char32_t kMalformed = 0xFFFFFFFF;
/// The character that is shown instead of one that is not known.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Takes one character off the front of a text that is not empty; a malformed byte is taken alone
/// and gives kMalformed. Surrogates and overlong forms are malformed.
char32_t TakeUtf8(std::string_view& text);

/// Appends a character, which is none of those that UTF-8 lacks.
void AppendUtf8(std::string& text, char32_t c);

} // namespace Tarnex
