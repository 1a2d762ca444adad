// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Environment.h>

#include <cstdlib>

namespace Tarnex {

std::string EnvironmentValue(const char* name) {
#ifdef _WIN32
    const wchar_t* const value = _wgetenv(std::filesystem::path(name).c_str());
    return value == nullptr ? std::string() : Utf8(value);
#else
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
#endif
}

std::string Utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace Tarnex
