// SPDX-License-Identifier: MIT
#include "cli/ConfigSource.h"

#include "cli/NameCheck.h"
#include "cli/Options.h"
#include "tools/check/ConfigHint.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <vector>

namespace Tarnex::Cli {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPluginSign = "TES3";

// Pipes are not opened beforehand: what a first reader takes out of them is gone.
void RequireReadable(const std::string& name) {
    const fs::path path = PathFromUtf8(name);
    std::error_code fault;
    const fs::file_status status = fs::status(path, fault);
    const std::string what = "the configuration \"" + name + "\"";
    if (!fs::exists(status)) {
        throw UsageError(what + " does not exist");
    }
    if (fs::is_directory(status)) {
        throw UsageError(what + " is a folder");
    }
    if (!fs::is_regular_file(status)) {
        return;
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw UsageError(what + " cannot be opened");
    }
    std::array<char, kPluginSign.size()> start{};
    file.read(start.data(), start.size());
    if (std::string_view(start.data(), start.size()) == kPluginSign) {
        throw UsageError('"' + name + "\" is a plug-in, not a configuration; \"vaultry inspect " +
                         ForShell(name) + "\" tells what it holds");
    }
}

} // namespace

const BuiltinConfig& FindBuiltin(const std::string& name) {
    std::vector<std::string> names;
    for (const BuiltinConfig& config : BuiltinConfigs()) {
        if (config.name == name) {
            return config;
        }
        names.emplace_back(config.name);
    }
    throw UsageError("there is no built-in configuration \"" + name + "\"; " +
                     OfferNames(name, names));
}

ConfigSource::ConfigSource(const std::string& configName) : name(configName) {
    const std::string prefix = std::string(kBuiltin) + ':';
    if (name == kBuiltin) {
        builtin = &FindBuiltin("default");
    } else if (name.starts_with(prefix)) {
        builtin = &FindBuiltin(name.substr(prefix.size()));
    } else {
        RequireReadable(name);
    }
}

std::optional<std::string> ConfigSource::Path() const {
    return builtin == nullptr ? std::optional(name) : std::nullopt;
}

void ConfigSource::Load(GenMgr& manager, const JobStatus& status, std::string* copy) const {
    if (builtin == nullptr) {
        manager.Init(name.c_str(), status, copy);
        return;
    }
    LoadBuiltin(manager, *builtin, name.c_str());
    if (copy != nullptr) {
        *copy = builtin->text;
    }
}

void ConfigSource::RequireWhole(const GenMgr& manager) const {
    const std::optional<Problem>& fault = manager.GetConfigFault();
    if (!fault) {
        return;
    }
    const std::string cause = Report::ProbableCause(fault->names.front());
    std::string text = "the configuration \"" + name + "\" cannot be read ";
    text += fault->place.line > 0 ? "beyond line " + std::to_string(fault->place.line) + ": "
                                  : "at all: ";
    text += Tarnex::ToUtf8(fault->names.front()) +
            (cause.empty() ? "" : " (probably " + cause + ")") + "; ";
    std::error_code unknown;
    // What was read of a pipe is gone.
    if (fs::is_regular_file(PathFromUtf8(name), unknown)) {
        text += "\"vaultry check " + ForShell(name) + "\" shows the place, ";
    }
    throw UsageError(text + "--keep-going uses what stands before it");
}

ConfigRecord ConfigSource::Record() const {
    return builtin == nullptr ? RecordConfigFile(name.c_str())
                              : RecordConfigText(builtin->text, name.c_str());
}

} // namespace Tarnex::Cli
