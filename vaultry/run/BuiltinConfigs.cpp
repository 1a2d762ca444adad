// SPDX-License-Identifier: MIT
#include <vaultry/run/BuiltinConfigs.h>

#include <vaultry/gen/GenMgr.h>

#include <algorithm>

namespace Tarnex {

const BuiltinConfig* FindBuiltinConfig(std::string_view source) {
    constexpr std::string_view kStart = "builtin:";
    const bool named = source.starts_with(kStart);
    const std::string_view name = named ? source.substr(kStart.size()) : "default";
    const auto configs = BuiltinConfigs();
    const auto found = std::ranges::find(configs, name, &BuiltinConfig::name);
    return (named || source == "builtin") && found != configs.end() ? &*found : nullptr;
}

void LoadBuiltin(GenMgr& manager, const BuiltinConfig& config, const char* name) {
    manager.InitFromMemory(config.text, name);
    if (config.name != "caves" && config.name != "grottoes") {
        return;
    }
    if (!manager.GetCaveTileSets().empty()) {
        manager.SetDefaultTileSet(manager.GetCaveTileSets().front()->GetName().c_str(), true);
    }
    if (!manager.GetCaveLayouts().empty()) {
        manager.SetDefaultTemplate(manager.GetCaveLayouts().front()->GetName().c_str(), true);
    }
}

} // namespace Tarnex
