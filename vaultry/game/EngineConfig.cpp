// SPDX-License-Identifier: MIT
#include <vaultry/game/EngineConfig.h>

#include <vaultry/foundation/CodePage.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace Tarnex {

namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr const char* kBlanks = " \t\r";
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// A folder may stand in quotation marks; there an ampersand takes away the meaning of what follows.
std::string Unquoted(std::string_view value) {
    if (!value.starts_with('"')) {
        return std::string(value);
    }
    std::string text;
    for (std::size_t i = 1; i < value.size() && value[i] != '"'; ++i) {
        i += value[i] == '&' && i + 1 < value.size() ? 1 : 0;
        text += value[i];
    }
    return text;
}

void AddLine(std::string_view line, EngineConfig& config) {
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) {
        return;
    }
    const std::string_view key = Trimmed(line.substr(0, sign));
    const std::string_view value = Trimmed(line.substr(sign + 1));
    if (key == "content") {
        config.content.emplace_back(value);
    } else if (key == "data" || key == "data-local") {
        config.folders.push_back(Unquoted(value));
    }
}

} // namespace

void AddEngineConfig(std::string_view text, EngineConfig& config) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        AddLine(text.substr(0, end), config);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::string EngineConfigPath(System system, const Environment& environment) {
    if (system == System::Windows) {
        return environment("USERPROFILE") + "\\Documents\\My Games\\OpenMW\\openmw.cfg";
    }
    const std::string folder = environment("XDG_CONFIG_HOME");
    return (folder.empty() ? environment("HOME") + "/.config" : folder) + "/openmw/openmw.cfg";
}

std::vector<std::string> EngineConfigPaths(System system, const Environment& environment) {
    std::vector<std::string> paths;
    if (system == System::Posix) {
        paths = {"/etc/openmw/openmw.cfg",
                 environment("HOME") + "/Library/Preferences/openmw/openmw.cfg"};
    }
    paths.push_back(EngineConfigPath(system, environment));
    return paths;
}

EngineConfig InstalledEngineConfig() {
    EngineConfig config;
    for (const std::string& path : EngineConfigPaths(kThisSystem, EnvironmentValue)) {
        std::ifstream stream(PathFromUtf8(path), std::ios::binary);
        std::ostringstream text;
        text << stream.rdbuf();
        AddEngineConfig(text.str(), config);
    }
    return config;
}

} // namespace Tarnex
