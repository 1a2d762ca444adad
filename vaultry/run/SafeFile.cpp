// SPDX-License-Identifier: MIT
#include <vaultry/run/SafeFile.h>

#include <vaultry/foundation/CodePage.h>

#include <algorithm>
#include <array>
#include <random>

namespace Tarnex {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = 65536; // written at once [bytes]
constexpr int kMostLinks = 40;        // one after another, as many as systems follow

fs::path FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// Where a file of that name ends up; empty when its links lead in a circle. Unlike the system's own
// way this one follows a link to a file that is not there.
fs::path FollowLinks(fs::path file) {
    std::error_code fault;
    for (int links = 0; fs::is_symlink(fs::symlink_status(file, fault)); ++links) {
        const fs::path target = fs::read_symlink(file, fault);
        if (fault || links == kMostLinks) {
            return {};
        }
        file = FolderOf(file) / target; // which replaces it when the target is absolute
    }
    return file;
}

fs::path PathOf(const std::string& what, const std::string& name) {
    try {
        return PathFromUtf8(name);
    } catch (const fs::filesystem_error&) {
        throw FilePlaceError(what + " \"" + name + "\" has a name that the system does not know");
    }
}

// Two runs at once are kept apart by 64 bits of chance. The name does not grow with the
// destination's, which may be as long as the system allows.
fs::path NameOfItsOwn(const fs::path& folder) {
    std::random_device chance;
    return folder /
           (".vaultry-" + std::to_string(chance()) + '-' + std::to_string(chance()) + ".tmp");
}

struct Reason {
    std::errc condition;
    const char* words;
};

constexpr std::array<Reason, 7> kReasons = {{
    {std::errc::no_space_on_device, "the disk is full"},
    {std::errc::file_too_large, "it would be larger than a file may be"},
    {std::errc::permission_denied, "it or its folder is protected, or it is in use"},
    {std::errc::operation_not_permitted, "it or its folder is protected, or it is in use"},
    {std::errc::read_only_file_system, "the disk is protected"},
    {std::errc::is_a_directory, "it has become a folder"},
    {std::errc::operation_canceled, "cancelled"},
}};

std::string WordsOf(const std::error_code& fault) {
    const auto* const known = std::ranges::find_if(
        kReasons, [&fault](const Reason& reason) { return fault == reason.condition; });
    return known == kReasons.end() ? fault.default_error_condition().message() : known->words;
}

} // namespace

bool SameFile(const std::string& a, const std::string& b) {
    std::error_code fault;
    const fs::path first = FollowLinks(PathFromUtf8(a));
    const fs::path second = FollowLinks(PathFromUtf8(b));
    if (fs::equivalent(first, second, fault) && !fault) {
        return true;
    }
    const fs::path whole = fs::weakly_canonical(fs::absolute(first, fault), fault);
    return !fault && whole == fs::weakly_canonical(fs::absolute(second, fault), fault);
}

void RequireFilePlace(const std::string& what, const std::string& path) {
    if (path.empty()) {
        throw FilePlaceError(what + " needs a name");
    }
    const fs::path file = PathOf(what, path);
    const std::string name = what + " \"" + path + '"';
    const fs::path destination = FollowLinks(file);
    std::error_code fault;
    if (destination.empty()) {
        throw FilePlaceError(name + " is a link that leads back to itself");
    }
    if (!destination.has_filename() || fs::is_directory(destination, fault)) {
        throw FilePlaceError(name + " is a folder");
    }
    if (!fs::is_directory(FolderOf(destination), fault)) {
        throw FilePlaceError(name + (destination == file ? ": its folder does not exist"
                                                         : " is a link into a folder that does "
                                                           "not exist"));
    }
}

SafeFile::Buffer::Buffer(SystemFile& systemFile) : file(systemFile), block(kBlock) {
    setp(block.data(), block.data() + block.size());
}

void SafeFile::Buffer::Fail(const std::error_code& why) {
    if (!fault) {
        fault = why;
    }
}

SafeFile::Buffer::int_type SafeFile::Buffer::overflow(int_type c) {
    if (sync() != 0) {
        return traits_type::eof();
    }
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        sputc(traits_type::to_char_type(c));
    }
    return traits_type::not_eof(c);
}

int SafeFile::Buffer::sync() {
    const auto size = static_cast<std::size_t>(pptr() - pbase());
    if (size > 0 && status != nullptr && status->HasBeenCanceled()) {
        Fail(std::make_error_code(std::errc::operation_canceled));
    }
    if (size > 0 && !fault) {
        fault = file.Write(pbase(), size);
        written += size;
    }
    setp(block.data(), block.data() + block.size());
    return fault ? -1 : 0;
}

SafeFile::SafeFile(const std::string& name) : path(name), buffer(file), stream(&buffer) {
    constexpr const char* kWhat = "the output file";
    RequireFilePlace(kWhat, path);
    destination = FollowLinks(PathOf(kWhat, path));
    std::error_code fault;
    const fs::file_status status = fs::status(destination, fault);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        throw FilePlaceError(std::string(kWhat) + " \"" + path + "\" is no ordinary file");
    }
}

SafeFile::~SafeFile() {
    if (!temporary.empty()) {
        file.Close();
        std::error_code ignored;
        fs::remove(temporary, ignored);
    }
}

std::ostream& SafeFile::Open(const JobStatus* status) {
    std::error_code fault;
    do {
        temporary = NameOfItsOwn(FolderOf(destination));
        fault = file.Create(temporary, destination);
    } while (fault == std::errc::file_exists);
    if (fault) {
        buffer.Fail(fault);
        stream.setstate(std::ios::failbit);
    }
    buffer.Ask(status);
    return stream;
}

void SafeFile::Finish() {
    stream.flush();
    if (!buffer.Fault() && stream) {
        buffer.Fail(file.Sync());
    }
    buffer.Fail(file.Close());
    buffer.Ask(nullptr);
    if (buffer.Fault() || !stream) {
        Throw(buffer.Fault());
    }
}

void SafeFile::Commit() {
    if (const std::error_code fault = RenameOver(temporary, destination)) {
        Throw(fault);
    }
    temporary.clear();
}

void SafeFile::Throw(const std::error_code& why) const {
    const std::string sentence = '"' + path + "\" could not be written";
    throw FileError(why ? sentence + ": " + WordsOf(why) : sentence);
}

} // namespace Tarnex
