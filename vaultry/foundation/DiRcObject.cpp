// SPDX-License-Identifier: MIT
#include <vaultry/foundation/DiRcObject.h>

void DiRcObject::RcObjectDestroy() {
    delete this;
}
