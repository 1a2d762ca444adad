// SPDX-License-Identifier: MIT
// Writing a file so that it is replaced whole or not at all.
#pragma once

#include <vaultry/foundation/Export.h>
#include <vaultry/foundation/SystemFile.h>

#include <cstdint>
#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <system_error>
#include <vector>

namespace Tarnex {

/// A file could not be written; says which and why in one line of UTF-8.
class VAULTRY_API FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// There can be no file at a place, whatever is written. Nothing was done.
class VAULTRY_API FilePlaceError : public FileError {
public:
    using FileError::FileError;
};

/// True when both paths (UTF-8) lead to one file, which need not exist.
VAULTRY_API bool SameFile(const std::string& a, const std::string& b);

/// Throws FilePlaceError unless `path` (UTF-8) can be a file: in a folder that exists and itself no
/// folder. `what` is what the file is, at the beginning of the message.
VAULTRY_API void RequireFilePlace(const std::string& what, const std::string& path);

/// A file that is written beside its destination under a name of its own and takes the
/// destination's name when it is complete. Whatever happens, a loss of power included, the
/// destination is the old file or the whole new one. A file that was not committed is removed at
/// the end.
class VAULTRY_API SafeFile {
public:
    /// Nothing is created yet. Throws FilePlaceError when `path` (UTF-8) cannot be written to: see
    /// RequireFilePlace, and devices and pipes, which could not be replaced, are refused too. A
    /// link stays a link: the file that it leads to is written, even where there is none yet.
    explicit SafeFile(const std::string& path);
    ~SafeFile();
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    /// Makes the new file, with permissions and owner of the one that it will replace, and hands
    /// out its stream, which fails when the disk takes no more. `status`, which may be null, is
    /// asked until Finish before every block that is written; when it says so, the stream fails
    /// too.
    std::ostream& Open(const JobStatus* status = nullptr);

    /// Forces the new file onto the disk. Throws FileError when it did not take everything.
    void Finish();

    /// Replaces the destination by the new file. Throws FileError.
    void Commit();

    /// How much was written. [bytes]
    std::uint64_t Size() const { return buffer.Written(); }

private:
    // Collects blocks and remembers why the first one was not taken.
    class Buffer : public std::streambuf {
    public:
        explicit Buffer(SystemFile& file);

        void Ask(const JobStatus* newStatus) { status = newStatus; }
        void Fail(const std::error_code& why);
        const std::error_code& Fault() const { return fault; }
        std::uint64_t Written() const { return written; }

    protected:
        int_type overflow(int_type c) override;
        int sync() override;

    private:
        SystemFile& file;
        const JobStatus* status = nullptr;
        std::vector<char> block;
        std::error_code fault;
        std::uint64_t written = 0;
    };

    [[noreturn]] void Throw(const std::error_code& why) const;

    std::string path; // as it was given
    std::filesystem::path destination;
    std::filesystem::path temporary;
    SystemFile file;
    Buffer buffer;
    std::ostream stream;
};

} // namespace Tarnex
