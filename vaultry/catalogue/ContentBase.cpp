// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ContentBase.h>

#include <vaultry/foundation/Text.h>

namespace Tarnex {

bool ContentBase::IsKind(std::string_view kind) const {
    return EqualsNoCase(contentKind, kind);
}

bool ContentBase::IsSubtype(std::string_view word) const {
    return EqualsNoCase(subtype, word);
}

} // namespace Tarnex
