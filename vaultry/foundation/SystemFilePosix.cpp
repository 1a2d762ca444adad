// SPDX-License-Identifier: MIT
#include <vaultry/foundation/SystemFile.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <limits>
#include <poll.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace Tarnex {

namespace {

namespace fs = std::filesystem;

// A signal ends a wait at once; the pause is for one that comes between a question and the wait.
constexpr std::chrono::milliseconds kPause(50);

constexpr mode_t kUsualMode = 0666; // less what the user masks
constexpr mode_t kMineAlone = 0600;
constexpr mode_t kPermissions = 0777;
constexpr mode_t kOthers = 07;
constexpr unsigned kGroupShift = 3; // from the bits of others to those of the group

std::error_code LastFault() {
    return {errno, std::generic_category()};
}

bool IsCanceled(const JobStatus* status) {
    return status != nullptr && status->HasBeenCanceled();
}

std::error_code Canceled() {
    return std::make_error_code(std::errc::operation_canceled);
}

bool IsOfType(const fs::path& path, mode_t type) {
    struct stat found {};
    return stat(path.c_str(), &found) == 0 && (found.st_mode & S_IFMT) == type;
}

// Only root gives files away, but a group may be one of the user's own. Where it is not, the new
// group may do no more than everybody.
mode_t TakeOwner(int number, const struct stat& old) {
    struct stat made {};
    const mode_t mode = old.st_mode & kPermissions;
    if (fstat(number, &made) != 0 || (made.st_uid == old.st_uid && made.st_gid == old.st_gid) ||
        fchown(number, old.st_uid, old.st_gid) == 0 ||
        fchown(number, static_cast<uid_t>(-1), old.st_gid) == 0 || made.st_gid == old.st_gid) {
        return mode;
    }
    return (mode & ~(kOthers << kGroupShift)) | ((mode & kOthers) << kGroupShift);
}

void SyncFolder(const fs::path& folder) {
    const int number = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number >= 0) {
        fsync(number); // what fails here has no remedy: the file has its name
        close(number);
    }
}

} // namespace

SystemFile::~SystemFile() {
    Close();
}

// Opened without waiting: a pipe that nobody writes to would be waited for here, unasked. Whether
// anybody does is told by the first wait.
std::error_code SystemFile::OpenToRead(const fs::path& path, const JobStatus* asked) {
    Close();
    status = asked;
    number = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    return IsOpen() ? Wait(POLLIN) : LastFault();
}

// A pipe without a reader cannot be opened without waiting.
std::error_code SystemFile::OpenToWrite(const fs::path& path, const JobStatus* asked) {
    Close();
    status = asked;
    for (;;) {
        constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_CLOEXEC;
        number = open(path.c_str(), kFlags, kUsualMode);
        const std::error_code fault = IsOpen() ? std::error_code() : LastFault();
        if (fault.value() != ENXIO || !IsOfType(path, S_IFIFO)) {
            return fault;
        }
        if (IsCanceled(status)) {
            return Canceled();
        }
        std::this_thread::sleep_for(kPause);
    }
}

std::error_code SystemFile::Create(const fs::path& path, const fs::path& like) {
    Close();
    status = nullptr;
    struct stat old {};
    const bool replaces = stat(like.c_str(), &old) == 0;
    number = open(
        path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, replaces ? kMineAlone : kUsualMode);
    if (!IsOpen() || (replaces && fchmod(number, TakeOwner(number, old)) != 0)) {
        return LastFault();
    }
    return {};
}

std::size_t SystemFile::Read(char* bytes, std::size_t most, std::error_code& fault) {
    fault.clear();
    while (!fault) {
        const ssize_t count = read(number, bytes, most);
        if (count >= 0) {
            return static_cast<std::size_t>(count);
        }
        fault = LastFault();
        if (errno == EAGAIN) {
            fault = Wait(POLLIN);
        } else if (errno == EINTR) {
            fault.clear();
        }
    }
    return 0;
}

std::error_code SystemFile::Write(const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t taken = write(number, bytes, count);
        if (taken >= 0) {
            bytes += taken;
            count -= static_cast<std::size_t>(taken);
        } else if (errno == EAGAIN) {
            if (const std::error_code fault = Wait(POLLOUT)) {
                return fault;
            }
        } else if (errno != EINTR) {
            return LastFault();
        }
    }
    return {};
}

std::error_code SystemFile::Sync() {
    constexpr std::array kCannot = {
        EINVAL, ENOSYS, ENOTSUP}; // some file systems have nothing to sync
    while (fsync(number) != 0) {
        const std::error_code fault = LastFault();
        if (std::ranges::find(kCannot, fault.value()) != kCannot.end()) {
            return {};
        }
        if (fault.value() != EINTR) {
            return fault;
        }
    }
    return {};
}

// A close that a signal interrupts has closed the file all the same.
std::error_code SystemFile::Close() {
    if (!IsOpen()) {
        return {};
    }
    const bool closed = close(number) == 0 || errno == EINTR;
    number = kNone;
    return closed ? std::error_code() : LastFault();
}

std::error_code SystemFile::Wait(short events) const {
    for (;;) {
        if (IsCanceled(status)) {
            return Canceled();
        }
        pollfd file{number, events, 0};
        const int ready = poll(&file, 1, status == nullptr ? -1 : static_cast<int>(kPause.count()));
        if (ready > 0) {
            return {};
        }
        if (ready < 0 && errno != EINTR) {
            return LastFault();
        }
    }
}

std::error_code RenameOver(const fs::path& from, const fs::path& to) {
    if (rename(from.c_str(), to.c_str()) != 0) {
        return LastFault();
    }
    SyncFolder(to.has_parent_path() ? to.parent_path() : fs::path("."));
    return {};
}

} // namespace Tarnex
