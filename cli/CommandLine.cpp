// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include "cli/Arguments.h"
#include "cli/CheckCommand.h"
#include "cli/ConfigCommand.h"
#include "cli/DiffCommand.h"
#include "cli/ExitStatus.h"
#include "cli/GenerateCommand.h"
#include "cli/InspectCommand.h"
#include "cli/ListCommand.h"
#include "cli/MapCommand.h"
#include "cli/SearchCommand.h"
#include "tools/text/UsageError.h"

#include <vaultry/run/SafeFile.h>

#include <exception>
#include <filesystem>
#include <ios>
#include <new>

namespace Tarnex::Cli {

namespace {

namespace fs = std::filesystem;

struct Dispatch {
    const Console& console;

    ExitStatus operator()(const GenerateOptions& options) const {
        return RunGenerate(options, console);
    }
    ExitStatus operator()(const MapOptions& options) const { return RunMap(options, console); }
    ExitStatus operator()(const SearchOptions& options) const {
        return RunSearch(options, console);
    }
    ExitStatus operator()(const ListOptions& options) const { return RunList(options, console); }
    ExitStatus operator()(const ConfigOptions& options) const {
        return RunConfig(options, console);
    }
    ExitStatus operator()(const InspectOptions& options) const {
        return RunInspect(options, console);
    }
    ExitStatus operator()(const DiffOptions& options) const { return RunDiff(options, console); }
    ExitStatus operator()(const CheckOptions& options) const { return RunCheck(options, console); }
    ExitStatus operator()(const PrintText& request) const {
        console.out << request.text;
        return ExitStatus::Success;
    }
    ExitStatus operator()(const NoVerb& request) const {
        console.err << request.help;
        return ExitStatus::Usage;
    }
};

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
        const Request request = ParseArguments(arguments);
        return CheckOutput(std::visit(Dispatch{console}, request), console);
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

int RunCommandLine(const std::vector<std::string>& arguments, const Console& console) {
    return static_cast<int>(Run(arguments, console));
}

} // namespace Tarnex::Cli
