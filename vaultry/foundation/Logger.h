// SPDX-License-Identifier: MIT
// The library's one channel for information, warnings and errors.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdarg>
#include <string>
#include <system_error>
#include <vector>

/// Lets the compiler check the arguments of a function against its format text: the number of the
/// parameter that is the text, and of the first that it formats, counted from 1.
#if defined(__MINGW32__)
#define VAULTRY_PRINTF(text, first) __attribute__((format(gnu_printf, text, first)))
#else
#define VAULTRY_PRINTF(text, first) __attribute__((format(printf, text, first)))
#endif

namespace Tarnex {

class JobStatus;

/// Writes the text log and keeps the error lines, for people who want to read what happened.
///
/// The log is that of the state in use (RunState.h): one for the process unless a thread uses a
/// state of its own, and written by one thread at a time. Texts are Windows-1252; each line ends
/// with LF on every platform and is flushed. A message is cut after kMaxMessage bytes. In the file,
/// though not in the error list, "?" stands for what no configuration in XML 1.0 can hold, the
/// escape of terminals for one. When the file cannot be opened or takes no more, lines are dropped
/// silently and the error list still grows; GetFault tells of it.
///
/// A front end says where the log goes, and takes what is wrong as values, which have a kind and a
/// place besides their text (Problem.h):
///
/// @code
/// Tarnex::Logger::Init("dungeon.log"); // or InitWithoutFile, to keep the disk clean
/// const Tarnex::ProblemList problems;
/// manager.Init("vaultry.xml");
/// for (const std::string& line : Tarnex::ErrorLines(problems.Get())) {
///     std::cerr << line << '\n';
/// }
/// @endcode
class VAULTRY_API Logger {
public:
    /// Opens `fileName` (UTF-8) for writing, truncating it; null or empty means "Log.txt". Only the
    /// first call has an effect; the first line written opens "Log.txt" if nobody called before. A
    /// log may be a pipe, whose reader is waited for here and at every line. While that lasts
    /// `status`, which may be null and must outlive the log, is asked: when it says so, the log
    /// takes no more.
    static void Init(const char* fileName, const JobStatus* status = nullptr);

    /// Keeps the log off the disk: like Init, but without a file. Error lines are still kept.
    static void InitWithoutFile();

    /// Closes the log; the next Init or line opens one anew. The error list stays.
    static void Close();

    /// Writes "Info : source : message". Source and format are not null, here and below.
    static void WriteInfo(const char* source, const char* format, ...) VAULTRY_PRINTF(2, 3);

    /// Writes "Warning : source : message"; not kept in the error list.
    static void DebugError(const char* source, const char* format, ...) VAULTRY_PRINTF(2, 3);

    /// What a message is cut after. [bytes]
    static constexpr std::size_t kMaxMessage = 4096;

    /// No more errors than these are kept and written; one more line says that there are more.
    static constexpr std::size_t kMaxErrors = 100'000;

    /// Writes "Error : source : message" and appends the line to the error list.
    static void WriteError(const char* source, const char* format, ...) VAULTRY_PRINTF(2, 3);

    /// The error lines since the start or the last ResetErrors, in order. The list is the state's
    /// own and grows with every error: copy it to keep it. A Run empties it before each try.
    static const std::vector<std::string>& GetErrors();

    /// Empties the error list; the log file is not touched.
    static void ResetErrors();

    /// Why the log lacks lines: what the system said when it could not be opened or first took no
    /// more. No error while the log is whole, and without a file.
    static std::error_code GetFault();
};

} // namespace Tarnex
