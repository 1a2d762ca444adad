// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ContentTemplate.h>

namespace Tarnex {

bool ContentTemplate::Instantiable() const {
    return true;
}

} // namespace Tarnex
