// SPDX-License-Identifier: MIT
#include "cli/ProgramArguments.h"

#ifdef _WIN32
#include <windows.h>

#include <shellapi.h>
#endif

namespace Tarnex::Cli {

#ifdef _WIN32

namespace {

std::string Utf8(const wchar_t* text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
    utf8.pop_back(); // the terminating zero
    return utf8;
}

} // namespace

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

#else

std::vector<std::string> ProgramArguments(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

#endif

} // namespace Tarnex::Cli
