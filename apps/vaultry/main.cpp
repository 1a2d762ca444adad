// SPDX-License-Identifier: MIT
// The program's entry.
#include "apps/vaultry/CommandLine.h"
#include "apps/vaultry/ExitStatus.h"
#include "apps/vaultry/Terminal.h"

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

namespace {

// Said as it stands, since composing a line would take memory.
[[noreturn]] void EndWithoutMemory() {
    std::cerr << "vaultry: out of memory\n";
    std::cerr.flush();
    std::_Exit(static_cast<int>(Tarnex::Cli::ExitStatus::Failure));
}

// Where memory runs out while the objects of another library are destroyed, nothing can be caught.
[[noreturn]] void EndWithoutUnwinding() {
    try {
        std::rethrow_exception(std::current_exception());
    } catch (const std::bad_alloc&) {
        EndWithoutMemory();
    } catch (...) {
        std::abort();
    }
}

} // namespace

int main(int argc, char** argv) try {
    std::set_terminate(EndWithoutUnwinding);
#ifdef SIGXFSZ
    // A file that may not grow further is a failure to write like any other.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    const Tarnex::Cli::Console console{std::cout,
                                       std::cerr,
                                       Tarnex::Cli::StandardErrorIsTerminal(),
                                       Tarnex::Cli::StandardOutputTakesColour()};
    return Tarnex::Cli::RunCommandLine({argv + (argc > 0 ? 1 : 0), argv + argc}, console);
} catch (const std::bad_alloc&) {
    EndWithoutMemory();
}
