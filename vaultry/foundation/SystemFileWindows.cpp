// SPDX-License-Identifier: MIT
#include <vaultry/foundation/SystemFile.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <windows.h>

namespace Tarnex {

namespace {

namespace fs = std::filesystem;

constexpr int kAsBytes = _O_BINARY | _O_NOINHERIT;
constexpr int kMayBeWritten = _S_IREAD | _S_IWRITE;
constexpr std::size_t kMost = INT_MAX; // that one call takes

std::error_code LastFault() {
    return {errno, std::generic_category()};
}

} // namespace

SystemFile::~SystemFile() {
    Close();
}

std::error_code SystemFile::OpenToRead(const fs::path& path, const JobStatus* /*status*/) {
    Close();
    number = _wopen(path.c_str(), _O_RDONLY | kAsBytes);
    return IsOpen() ? std::error_code() : LastFault();
}

std::error_code SystemFile::OpenToWrite(const fs::path& path, const JobStatus* /*status*/) {
    Close();
    number = _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | kAsBytes, kMayBeWritten);
    return IsOpen() ? std::error_code() : LastFault();
}

// Windows knows only whether a file may be written, and one that may not is not replaced.
std::error_code SystemFile::Create(const fs::path& path, const fs::path& /*like*/) {
    Close();
    number = _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | kAsBytes, kMayBeWritten);
    return IsOpen() ? std::error_code() : LastFault();
}

std::size_t SystemFile::Read(char* bytes, std::size_t most, std::error_code& fault) {
    const int count = _read(number, bytes, static_cast<unsigned>(std::min(most, kMost)));
    fault = count < 0 ? LastFault() : std::error_code();
    return count < 0 ? 0 : static_cast<std::size_t>(count);
}

std::error_code SystemFile::Write(const char* bytes, std::size_t count) {
    while (count > 0) {
        const int taken = _write(number, bytes, static_cast<unsigned>(std::min(count, kMost)));
        if (taken < 0) {
            return LastFault();
        }
        bytes += taken;
        count -= static_cast<std::size_t>(taken);
    }
    return {};
}

std::error_code SystemFile::Sync() {
    return _commit(number) == 0 ? std::error_code() : LastFault();
}

std::error_code SystemFile::Close() {
    const bool closed = !IsOpen() || _close(number) == 0;
    number = kNone;
    return closed ? std::error_code() : LastFault();
}

std::error_code RenameOver(const fs::path& from, const fs::path& to) {
    constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (MoveFileExW(from.c_str(), to.c_str(), kHow) == 0) {
        return {static_cast<int>(GetLastError()), std::system_category()};
    }
    return {};
}

} // namespace Tarnex
