// SPDX-License-Identifier: MIT
#include "cli/Terminal.h"

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string_view>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>

#include <windows.h>

#include <shellapi.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace Tarnex::Cli {

namespace {

#ifdef _WIN32

// The console's settings; false when the stream is none. (The null device calls itself a terminal
// too.)
bool ConsoleMode(DWORD stream, DWORD& mode) {
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

bool IsTerminal(DWORD stream) {
    DWORD mode = 0;
    return ConsoleMode(stream, mode);
}

bool ShowsColours(DWORD stream) {
    DWORD mode = 0;
    return ConsoleMode(stream, mode) && (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

void SwitchOnColours(DWORD stream) {
    DWORD mode = 0;
    if (ConsoleMode(stream, mode)) {
        SetConsoleMode(GetStdHandle(stream), mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
}

// 0 when the stream is no console.
std::size_t ColumnsOf(DWORD stream) {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    const bool known = GetConsoleScreenBufferInfo(GetStdHandle(stream), &info) != 0;
    return known ? static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1) : 0;
}

constexpr DWORD kOut = STD_OUTPUT_HANDLE;
constexpr DWORD kErr = STD_ERROR_HANDLE;

std::string Utf8(const wchar_t* text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
    utf8.pop_back(); // the terminating zero
    return utf8;
}

#else

bool IsTerminal(int stream) {
    return isatty(stream) != 0;
}

bool ShowsColours(int stream) {
    return IsTerminal(stream);
}

// 0 when the stream is no terminal.
std::size_t ColumnsOf(int stream) {
    winsize size{};
    return ioctl(stream, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

constexpr int kOut = STDOUT_FILENO;
constexpr int kErr = STDERR_FILENO;

#endif

} // namespace

bool StandardErrorIsTerminal() {
    return IsTerminal(kErr);
}

Report::TextPage StandardOutputPage() {
    const auto variable = [](const char* name) {
        const char* const value = std::getenv(name);
        return std::string_view(value == nullptr ? "" : value);
    };
    const bool takesColour = variable("NO_COLOR").empty() && variable("TERM") != "dumb";
    return {takesColour && ShowsColours(kOut), ColumnsOf(kOut)};
}

#ifdef _WIN32

std::vector<std::string> ProgramArguments(int, char**) {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(Utf8(words[i]));
    }
    LocalFree(words);
    return arguments;
}

std::shared_ptr<void> PrepareStreams() {
    const UINT oldCodePage = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    for (std::FILE* const stream : {stdin, stdout, stderr}) {
        _setmode(_fileno(stream), _O_BINARY);
    }
    for (const DWORD stream : {kOut, kErr}) {
        SwitchOnColours(stream);
    }
    return {nullptr, [oldCodePage](void*) { SetConsoleOutputCP(oldCodePage); }};
}

#else

std::vector<std::string> ProgramArguments(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

std::shared_ptr<void> PrepareStreams() {
    return nullptr;
}

#endif

} // namespace Tarnex::Cli
