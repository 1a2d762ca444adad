// SPDX-License-Identifier: MIT
// A file as the system has it, whose waits have an end.
#pragma once

#include <vaultry/foundation/JobStatus.h>

#include <cstddef>
#include <filesystem>
#include <system_error>

namespace Tarnex {

/// An open file, closed at the end. A pipe may have to be waited for: as long as nobody holds its
/// other end, has written anything or reads. Whoever opens it hands over a status, which may be
/// null and must outlive the file; while it waits the status is asked several times a second, and
/// when that says so the wait ends with std::errc::operation_canceled. On Windows nothing is asked.
class SystemFile {
public:
    SystemFile() = default;
    ~SystemFile();
    SystemFile(const SystemFile&) = delete;
    SystemFile& operator=(const SystemFile&) = delete;

    /// Opens a file to be read, in place of one that is open. Waits until there is something to
    /// read or the end is reached.
    std::error_code OpenToRead(const std::filesystem::path& path, const JobStatus* status);

    /// Opens a file to be written over, or makes it. Waits for the reader of a pipe.
    std::error_code OpenToWrite(const std::filesystem::path& path, const JobStatus* status);

    /// Makes a file that must not be there yet. When there is a file `like`, the new one gets its
    /// permissions before it holds a byte, and its owner and group as far as the system allows.
    std::error_code Create(const std::filesystem::path& path, const std::filesystem::path& like);

    bool IsOpen() const { return number >= 0; }

    /// Reads `most` bytes or as many as there are at the moment; none at the end or with a fault.
    std::size_t Read(char* bytes, std::size_t most, std::error_code& fault);

    /// Writes all of it.
    std::error_code Write(const char* bytes, std::size_t count);

    /// Forces what was written onto the disk, where the system can.
    std::error_code Sync();

    std::error_code Close();

private:
    static constexpr int kNone = -1;

    std::error_code Wait(short events) const;

    int number = kNone; // the system's
    const JobStatus* status = nullptr;
};

/// Gives the file `from` the name `to` of the same folder, in place of a file that has it, and
/// forces that onto the disk where the system can. Nobody ever sees another file there than the old
/// or the new one.
std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace Tarnex
