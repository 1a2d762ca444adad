// SPDX-License-Identifier: MIT
// Where a configuration comes from.
#pragma once

#include <vaultry/catalogue/ConfigRecord.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/run/BuiltinConfigs.h>

#include <optional>
#include <string>

namespace Tarnex::Cli {

/// The built-in configuration of that name. Throws UsageError, offering the names there are.
const BuiltinConfig& FindBuiltin(const std::string& name);

/// A configuration as it was asked for: a file (path in UTF-8), "builtin" or "builtin:NAME".
class ConfigSource {
public:
    /// Throws UsageError when there is no such built-in configuration or no such readable file.
    explicit ConfigSource(const std::string& name);

    /// The file's path, or nothing for a built-in configuration.
    std::optional<std::string> Path() const;

    /// Reads the configuration into `manager`; the library logs what is wrong with it. When
    /// `status` says that this was cancelled, `manager` has none. What is read is put into `copy`,
    /// since a pipe gives it only once and a file may change; null copies nothing.
    void
    Load(GenMgr& manager, const JobStatus& status = JobStatus(), std::string* copy = nullptr) const;

    /// Throws UsageError when `manager`, which has loaded it, could not read it to its end: where,
    /// why, what is probably meant and what to do about it.
    void RequireWhole(const GenMgr& manager) const;

    /// The configuration as it is written, with what the library logs about it.
    ConfigRecord Record() const;

private:
    std::string name;
    const BuiltinConfig* builtin = nullptr;
};

} // namespace Tarnex::Cli
