// SPDX-License-Identifier: MIT
#include "cli/LibraryLog.h"

#include "cli/CancelSignals.h"
#include "cli/NameCheck.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/run/SafeFile.h>

#include <filesystem>
#include <fstream>

namespace Tarnex::Cli {

namespace {

// The library drops what it cannot log, so the file is tried beforehand. A pipe or a device is not:
// opening it could wait for a reader.
void RequireWritable(const std::string& path) {
    RequireFilePlace("the log", path);
    const std::filesystem::path file = PathFromUtf8(path);
    std::error_code fault;
    const std::filesystem::file_status status = std::filesystem::status(file, fault);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        return;
    }
    if (!std::ofstream(file, std::ios::binary | std::ios::app)) {
        throw UsageError("the log \"" + path + "\" cannot be written");
    }
}

} // namespace

LibraryLog::LibraryLog(const std::optional<std::string>& file) : path(file.value_or("")) {
    if (file) {
        RequireWritable(path);
    }
    Logger::Close();
    Logger::ResetErrors();
    if (file) {
        Logger::Init(path.c_str(), &CancelSignals::Status());
    } else {
        Logger::InitWithoutFile();
    }
}

LibraryLog::~LibraryLog() {
    Logger::Close();
}

void LibraryLog::Add(const std::vector<Problem>& problems) {
    for (const Problem& problem : problems) {
        heard.Hear(problem);
    }
}

std::optional<std::string> LibraryLog::SayFault(const Console& console) const {
    const std::error_code fault = Logger::GetFault();
    if (!fault) {
        return std::nullopt;
    }
    const std::string line = "the log \"" + path + "\" could not be written whole: ";
    console.Say(line + fault.message());
    return line + fault.message();
}

} // namespace Tarnex::Cli
