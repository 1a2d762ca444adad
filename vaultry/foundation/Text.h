// SPDX-License-Identifier: MIT
// Comparing names and reading numbers, the same in every locale.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex {

/// The letters a to z as A to Z; every other byte as it is.
VAULTRY_API std::string ToUpper(std::string_view text);

/// Equality without regard to the case of the letters a to z.
VAULTRY_API bool EqualsNoCase(std::string_view a, std::string_view b);

/// The whole number at the start of `text`: white space, a sign, digits. Trailing text is ignored,
/// text that is no number reads 0, and a value out of range saturates.
VAULTRY_API std::int32_t ParseInt(std::string_view text);

/// The real number at the start of `text`: white space, a sign, digits with a point, an exponent.
/// No hexadecimal, infinity or not-a-number: these read 0, as does text that is no number.
VAULTRY_API double ParseReal(std::string_view text);

/// The characters that separate names in a list. The blank is not one of them.
inline constexpr std::string_view kListSeparators = "\t\r\f\n,;";

/// The names of a list, in order; empty ones do not count. They are parts of `text`.
VAULTRY_API std::vector<std::string_view> SplitList(std::string_view text);

/// The words one after another, with `between` after each but the last.
VAULTRY_API std::string JoinWords(const std::vector<std::string>& words,
                                  std::string_view between = ", ");

} // namespace Tarnex
