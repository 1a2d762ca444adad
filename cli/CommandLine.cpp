// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include "cli/Arguments.h"
#include "cli/Commands.h"
#include "tools/text/UsageError.h"

#include <vaultry/run/SafeFile.h>

#include <exception>
#include <filesystem>
#include <ios>
#include <new>

namespace Tarnex::Cli {

namespace {

namespace fs = std::filesystem;

// A result that did not reach its reader, on a full disk for instance, is no success.
ExitStatus CheckOutput(ExitStatus status, const Console& console) {
    console.out.flush();
    if (console.out || status != ExitStatus::Success) {
        return status;
    }
    console.Say("standard output could not be written");
    return ExitStatus::Failure;
}

ExitStatus Run(const std::vector<std::string>& arguments, const Console& console) {
    try {
        const auto run = [&](const auto& options) { return RunVerb(options, console); };
        return CheckOutput(std::visit(run, ParseArguments(arguments)), console);
    } catch (const UsageError& e) {
        console.Say(e.what());
        return ExitStatus::Usage;
    } catch (const FilePlaceError& e) {
        console.Say(e.what());
        return ExitStatus::Usage;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const fs::filesystem_error& e) {
        // Its own words are those of a library.
        const std::u8string name = e.path1().u8string();
        console.Say('"' + std::string(name.begin(), name.end()) +
                    "\" cannot be used: " + e.code().message());
        return ExitStatus::Failure;
    } catch (const std::ios_base::failure& e) {
        console.Say("a file could not be read or written: " + e.code().message());
        return ExitStatus::Failure;
    } catch (const std::exception& e) {
        console.Say(e.what());
        return ExitStatus::Failure;
    }
}

} // namespace

ExitStatus RunVerb(const PrintText& request, const Console& console) {
    console.out << request.text;
    return ExitStatus::Success;
}

ExitStatus RunVerb(const NoVerb& request, const Console& console) {
    console.err << request.help;
    return ExitStatus::Usage;
}

int RunCommandLine(const std::vector<std::string>& arguments, const Console& console) {
    return static_cast<int>(Run(arguments, console));
}

} // namespace Tarnex::Cli
