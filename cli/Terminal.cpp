// SPDX-License-Identifier: MIT
#include "cli/Terminal.h"

#include <cstdio>
#include <cstdlib>
#include <initializer_list>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>

#include <windows.h>
#else
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

constexpr DWORD kOut = STD_OUTPUT_HANDLE;
constexpr DWORD kErr = STD_ERROR_HANDLE;

// Returns what gives the console back its settings.
std::function<void()> PrepareStreams() {
    const UINT oldCodePage = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    for (std::FILE* const stream : {stdout, stderr}) {
        _setmode(_fileno(stream), _O_BINARY);
    }
    for (const DWORD stream : {kOut, kErr}) {
        SwitchOnColours(stream);
    }
    return [oldCodePage] { SetConsoleOutputCP(oldCodePage); };
}

#else

bool IsTerminal(int stream) {
    return isatty(stream) != 0;
}

bool ShowsColours(int stream) {
    return IsTerminal(stream);
}

constexpr int kOut = STDOUT_FILENO;
constexpr int kErr = STDERR_FILENO;

std::function<void()> PrepareStreams() {
    return {};
}

#endif

} // namespace

bool StandardErrorIsTerminal() {
    return IsTerminal(kErr);
}

bool StandardOutputTakesColour() {
    const char* const refused = std::getenv("NO_COLOR");
    return ShowsColours(kOut) && (refused == nullptr || *refused == '\0');
}

StreamSetup::StreamSetup() : restore(PrepareStreams()) {}

StreamSetup::~StreamSetup() {
    if (restore) {
        restore();
    }
}

} // namespace Tarnex::Cli
