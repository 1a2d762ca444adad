// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ContentItem.h>

namespace Tarnex {

bool ContentItem::Instantiable() const {
    return true;
}

} // namespace Tarnex
