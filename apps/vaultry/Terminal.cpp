// SPDX-License-Identifier: MIT
#include "apps/vaultry/Terminal.h"

#include <cstdio>
#include <cstdlib>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace Tarnex::Cli {

namespace {

bool IsTerminal(std::FILE* stream) {
#ifdef _WIN32
    return _isatty(_fileno(stream)) != 0;
#else
    return isatty(fileno(stream)) != 0;
#endif
}

} // namespace

bool StandardErrorIsTerminal() {
    return IsTerminal(stderr);
}

bool StandardOutputTakesColour() {
    const char* const refused = std::getenv("NO_COLOR");
    return IsTerminal(stdout) && (refused == nullptr || *refused == '\0');
}

} // namespace Tarnex::Cli
