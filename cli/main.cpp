// SPDX-License-Identifier: MIT
// The program's entry.
#include "cli/Aside.h"
#include "cli/CommandLine.h"
#include "cli/ExitStatus.h"
#include "cli/Terminal.h"

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <new>

namespace {

// Said as it stands, since composing a line would take memory.
[[noreturn]] void EndWithoutMemory() {
    std::cerr << "vaultry: out of memory\n";
    std::cerr.flush();
    std::_Exit(static_cast<int>(Tarnex::Cli::ExitStatus::Failure));
}

std::terminate_handler usualEnd = nullptr;

// Where memory runs out while the objects of another library are destroyed, nothing can be caught.
void EndWithoutUnwinding() {
    try {
        if (const std::exception_ptr fault = std::current_exception()) {
            std::rethrow_exception(fault);
        }
    } catch (const std::bad_alloc&) {
        EndWithoutMemory();
    } catch (...) {
        usualEnd();
    }
    usualEnd();
}

} // namespace

int main(int argc, char** argv) try {
    usualEnd = std::set_terminate(EndWithoutUnwinding);
#ifdef SIGXFSZ
    // A file that may not grow further is a failure to write like any other.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    const std::shared_ptr<void> streams = Tarnex::Cli::PrepareStreams();
    const Tarnex::Cli::Console console{std::cout,
                                       std::cerr,
                                       Tarnex::Cli::StandardErrorIsTerminal(),
                                       Tarnex::Cli::StandardOutputPage()};
    const int status =
        Tarnex::Cli::RunCommandLine(Tarnex::Cli::ProgramArguments(argc, argv), console);
    Tarnex::Cli::EndProcessBesideThreads(status);
    return status;
} catch (const std::bad_alloc&) {
    EndWithoutMemory();
}
