// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Logger.h>

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/LogState.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/RunState.h>

#include <cstdio>
#include <filesystem>

namespace Tarnex {

namespace {

constexpr const char* kDefaultFile = "Log.txt";

LogState& State() {
    return *CurrentRunState().log;
}

std::string FormatMessage(const char* format, va_list args) {
    std::vector<char> buffer(Logger::kMaxMessage + 1);
    // The linter does not see that the callers start the list.
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
    const int needed = std::vsnprintf(buffer.data(), buffer.size(), format, args);
    return needed < 0 ? std::string() : std::string(buffer.data());
}

std::string MakeLine(const char* kind, const char* source, const char* format, va_list args) {
    return std::string(kind) + " : " + source + " : " + FormatMessage(format, args);
}

void WriteLine(const std::string& line) {
    Logger::Init(nullptr);
    LogState& state = State();
    if (state.file.IsOpen() && !state.fault) {
        const std::string text = ForLog(line) + '\n';
        state.fault = state.file.Write(text.data(), text.size());
    }
}

} // namespace

void Logger::Init(const char* fileName, const JobStatus* status) {
    LogState& state = State();
    if (state.opened) {
        return;
    }
    state.opened = true;
    const bool named = fileName != nullptr && *fileName != '\0';
    try {
        const std::filesystem::path path = PathFromUtf8(named ? fileName : kDefaultFile);
        state.fault = state.file.OpenToWrite(path, status);
    } catch (const std::filesystem::filesystem_error& e) {
        // Windows has no name for a path that is not UTF-8: a file that cannot be opened.
        state.fault = e.code();
    }
}

void Logger::InitWithoutFile() {
    State().opened = true;
}

void Logger::Close() {
    LogState& state = State();
    state.opened = false;
    state.file.Close();
    state.fault.clear();
}

void Logger::WriteInfo(const char* source, const char* format, ...) {
    va_list args;
    va_start(args, format);
    WriteLine(MakeLine("Info", source, format, args));
    va_end(args);
}

void Logger::DebugError(const char* source, const char* format, ...) {
    va_list args;
    va_start(args, format);
    WriteLine(MakeLine("Warning", source, format, args));
    va_end(args);
}

void Logger::WriteError(const char* source, const char* format, ...) {
    va_list args;
    va_start(args, format);
    std::string line = MakeLine("Error", source, format, args);
    va_end(args);
    std::vector<std::string>& errors = State().errors;
    if (errors.size() > kMaxErrors) {
        return;
    }
    if (errors.size() == kMaxErrors) {
        line = "Error : " + TextOf({ProblemKind::TooMany, {std::to_string(kMaxErrors)}});
    }
    WriteLine(line);
    errors.push_back(std::move(line));
}

const std::vector<std::string>& Logger::GetErrors() {
    return State().errors;
}

void Logger::ResetErrors() {
    State().errors.clear();
}

std::error_code Logger::GetFault() {
    return State().fault;
}

} // namespace Tarnex
