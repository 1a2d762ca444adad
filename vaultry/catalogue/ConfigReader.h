// SPDX-License-Identifier: MIT
// Reading a configuration into the store.
#pragma once

#include <vaultry/catalogue/ConfigMgr.h>
#include <vaultry/foundation/Problem.h>

#include <optional>
#include <string>
#include <string_view>

namespace Tarnex {

class ConfigLoader;
class JobStatus;

/// Starts the XML parser library, once per process. Returns an empty text, or the library's message
/// when it cannot be started.
std::string StartXmlParser();

/// Reads the configuration file at `path` (UTF-8) into `config`. The parser must have been started.
/// Every problem is reported; what was filed before a fatal one stays. No external
/// entity, DTD or schema is opened; nesting, entity expansion, text and memory are limited. No
/// exception of the parser leaves the function; std::bad_alloc does when the machine's memory runs
/// out, and LoadCanceled when `status`, which may be null, says so.
/// What is read is appended to `copy` before the parser sees it; null copies nothing. Returns the
/// first fatal problem, or nothing.
std::optional<Problem> ReadConfigFile(const char* path,
                                      ConfigMgr& config,
                                      const JobStatus* status = nullptr,
                                      std::string* copy = nullptr);

/// Like ReadConfigFile, but from a document held in memory. `name` (UTF-8) stands for the file.
std::optional<Problem> ReadConfigText(std::string_view text,
                                      const char* name,
                                      ConfigMgr& config,
                                      const JobStatus* status = nullptr);

/// Likewise with a loader of the caller's, which hears every event of the parser.
void ReadConfigFile(const char* path, ConfigLoader& loader, std::string* copy = nullptr);
void ReadConfigText(std::string_view text, const char* name, ConfigLoader& loader);

} // namespace Tarnex
