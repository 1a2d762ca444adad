// SPDX-License-Identifier: MIT
// What each verb does, a source for each. All throw UsageError for options that cannot be followed.
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/Options.h"

namespace Tarnex::Cli {

/// Generates a plug-in and reports on it. The same options, with seed and stamp, give the same
/// bytes. Nothing is generated when UsageError is thrown.
ExitStatus RunVerb(const GenerateOptions& options, const Console& console);

/// Draws a plug-in, or generates without writing one and draws that: into the files asked for, or
/// else on the terminal.
ExitStatus RunVerb(const MapOptions& options, const Console& console);

/// Draws the interiors of the plug-in that the options name.
ExitStatus RunPluginMap(const MapOptions& options, const Console& console);

/// Judges many seeds and lists the best, or merges the tables of several searches.
ExitStatus RunVerb(const SearchOptions& options, const Console& console);

/// Prints what a configuration offers, by name; the library's error lines go to standard error. A
/// configuration that offers nothing is a failure.
ExitStatus RunVerb(const ListOptions& options, const Console& console);

/// Prints a built-in configuration, byte for byte.
ExitStatus RunVerb(const ConfigOptions& options, const Console& console);

/// Prints what a plug-in holds and what does not fit in it; findings are a failure.
ExitStatus RunVerb(const InspectOptions& options, const Console& console);

/// Starts OpenMW in the first room of a plug-in. Throws UsageError when something is missing.
ExitStatus RunVerb(const PlayOptions& options, const Console& console);

/// Prints what differs between two plug-ins; differences are a failure.
ExitStatus RunVerb(const DiffOptions& options, const Console& console);

/// Prints what is wrong with configurations; findings of weight are a failure, and one that does
/// not exist or cannot be read is a usage error. The status is the worst of all.
ExitStatus RunVerb(const CheckOptions& options, const Console& console);

/// Writes a stand-in for the game, on which the engine shows what was generated.
ExitStatus RunVerb(const StageOptions& options, const Console& console);

/// Prints the manual page.
ExitStatus RunVerb(const ManualOptions& options, const Console& console);

/// Prints what a shell completes arguments by.
ExitStatus RunVerb(const CompletionOptions& options, const Console& console);

/// Answers a shell that does.
ExitStatus RunVerb(const CompleteOptions& options, const Console& console);

/// Prints what was asked for.
ExitStatus RunVerb(const PrintText& request, const Console& console);

/// Shows the help.
ExitStatus RunVerb(const NoVerb& request, const Console& console);

} // namespace Tarnex::Cli
