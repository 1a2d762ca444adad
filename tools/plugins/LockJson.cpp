// SPDX-License-Identifier: MIT
#include "tools/plugins/LockJson.h"

#include <vaultry/foundation/CodePage.h>

namespace Tarnex::Report {

Json LockJson(const std::optional<PluginLock>& lock) {
    if (!lock) {
        return nullptr;
    }
    const auto textOrNull = [](const std::string& text) {
        return text.empty() ? Json(nullptr) : Json(ToUtf8(text));
    };
    return {{"level", lock->level ? Json(*lock->level) : Json(nullptr)},
            {"key", textOrNull(lock->key)},
            {"trap", textOrNull(lock->trap)}};
}

} // namespace Tarnex::Report
