// SPDX-License-Identifier: MIT
// The program's entry.
#include "apps/vaultry/CommandLine.h"
#include "apps/vaultry/Terminal.h"

#include <iostream>

int main(int argc, char** argv) {
    const Tarnex::Cli::Console console{std::cout,
                                       std::cerr,
                                       Tarnex::Cli::StandardErrorIsTerminal(),
                                       Tarnex::Cli::StandardOutputTakesColour()};
    return Tarnex::Cli::RunCommandLine({argv + (argc > 0 ? 1 : 0), argv + argc}, console);
}
