// SPDX-License-Identifier: MIT
#include "tools/plugins/LockWords.h"

#include "tools/text/Words.h"

namespace Tarnex::Report {

bool IsForKeyAlone(const PluginLock& lock) {
    return lock.level.value_or(0) == 0 && !lock.key.empty();
}

bool IsLocked(const PluginLock& lock) {
    return lock.level.value_or(0) > 0 || IsForKeyAlone(lock);
}

std::optional<PluginLock> LockOf(const Ref& ref) {
    const DiPtr<RefLock>& lock = ref.GetLock();
    return lock ? std::optional(PluginLock{lock->level, lock->key, lock->trap}) : std::nullopt;
}

std::string LockWords(const std::optional<PluginLock>& lock) {
    if (!lock) {
        return {};
    }
    std::string words;
    const auto add = [&words](const std::string& part) {
        words += (words.empty() ? "" : ", ") + part;
    };
    if (IsForKeyAlone(*lock)) {
        add("locked");
    } else if (lock->level) {
        add(*lock->level > 0 ? "locked at " + std::to_string(*lock->level) : "not locked");
    }
    if (!lock->key.empty()) {
        add("key " + Quoted(lock->key));
    }
    if (!lock->trap.empty()) {
        add("trap " + Quoted(lock->trap));
    }
    return words;
}

} // namespace Tarnex::Report
