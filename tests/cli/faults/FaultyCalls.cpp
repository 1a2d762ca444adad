// SPDX-License-Identifier: MIT
// Loaded in front of the program's libraries: makes allocations fail, files vanish and drawings
// last for ever, as the environment says. What libraries allocate before the program itself begins
// is left out.
//   VAULTRY_FAIL_AT=n        the n-th allocation fails
//   VAULTRY_FAIL_ON=1        and all after it
//   VAULTRY_FAIL_EVERY=n     each n-th allocation fails in a copy of the process made for it, which
//                            goes on to its end, and succeeds in the process itself
//   VAULTRY_FAIL_FROM=m      only those after the m-th
//   VAULTRY_ENDS_IN=file     how these copies ended, as wait has it
//   VAULTRY_COUNT_IN=file    the number of allocations is written there at the end
//   VAULTRY_VANISHES=file    it is removed as soon as it was opened once
//   VAULTRY_SYNC_FAILS=1     nothing can be forced onto the disk
//   VAULTRY_CALLS_IN=file    what is forced onto the disk and renamed is written there, line by
//   line
//   VAULTRY_DRAWS_TILL=n     a picture in pixels is never done; the process is sent signal n as
//   soon as it is begun
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

long NumberIn(const char* variable) {
    const char* text = std::getenv(variable);
    return text == nullptr ? 0 : std::atol(text);
}

std::atomic<long> allocations = 0; // of all threads
long failing = 0;
long every = 0; // 0 in a copy
long from = 0;
int ends = -1;
bool goesOn = false;
bool begun = false;

void Begin() {
    failing = NumberIn("VAULTRY_FAIL_AT");
    every = NumberIn("VAULTRY_FAIL_EVERY");
    from = NumberIn("VAULTRY_FAIL_FROM");
    goesOn = NumberIn("VAULTRY_FAIL_ON") != 0;
    if (every > 0) {
        ends = open(std::getenv("VAULTRY_ENDS_IN"), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    }
    begun = true;
}

// The process itself waits for the end of the copy and goes on as if nothing had happened.
void FailInACopy() {
    const pid_t copy = fork();
    if (copy == 0) {
        every = 0;
        failing = allocations;
        return;
    }
    int status = -1;
    waitpid(copy, &status, 0);
    dprintf(ends, "%d\n", status);
}

bool Fails() {
    if (!begun) {
        return false;
    }
    const long number = ++allocations;
    if (every > 0 && number > from && number % every == 0) {
        FailInACopy();
    }
    return number == failing || (goesOn && failing > 0 && number > failing);
}

void* Allocate(std::size_t size, std::size_t alignment) {
    const std::size_t whole = (size + alignment - 1) / alignment * alignment;
    return Fails() ? nullptr : std::aligned_alloc(alignment, whole == 0 ? alignment : whole);
}

void* AllocateOrThrow(std::size_t size, std::size_t alignment) {
    void* memory = Allocate(size, alignment);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

constexpr std::size_t kUsual = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

__attribute__((destructor)) void WriteCount() {
    const char* name = std::getenv("VAULTRY_COUNT_IN");
    std::FILE* file = name == nullptr ? nullptr : std::fopen(name, "w");
    if (file != nullptr) {
        std::fprintf(file, "%ld\n", allocations.load());
        std::fclose(file);
    }
}

} // namespace

void* operator new(std::size_t size) {
    return AllocateOrThrow(size, kUsual);
}
void* operator new[](std::size_t size) {
    return AllocateOrThrow(size, kUsual);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return AllocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return AllocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size, kUsual);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size, kUsual);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory,
                       std::size_t /*size*/,
                       std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}

extern "C" {

namespace {

using Main = int (*)(int, char**, char**);
Main programsMain = nullptr;

int BeginMain(int argc, char** argv, char** environment) {
    Begin();
    return programsMain(argc, argv, environment);
}

} // namespace

// The C library's start of a program.
__attribute__((visibility("default"))) int __libc_start_main(Main main,
                                                             int argc,
                                                             char** argv,
                                                             void (*init)(),
                                                             void (*fini)(),
                                                             void (*endOfLoader)(),
                                                             void* stackEnd) {
    using Start = int (*)(Main, int, char**, void (*)(), void (*)(), void (*)(), void*);
    const auto next = reinterpret_cast<Start>(dlsym(RTLD_NEXT, "__libc_start_main"));
    programsMain = main;
    return next(BeginMain, argc, argv, init, fini, endOfLoader, stackEnd);
}
}

// How the standard library's file streams open files.
extern "C" __attribute__((visibility("default"))) std::FILE* fopen64(const char* name,
                                                                     const char* mode) {
    using Open = std::FILE* (*)(const char*, const char*);
    static const auto next = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "fopen64"));
    std::FILE* file = next(name, mode);
    const char* vanishing = std::getenv("VAULTRY_VANISHES");
    if (vanishing != nullptr && std::strcmp(name, vanishing) == 0) {
        unlink(name);
    }
    return file;
}

namespace {

void Note(const char* what, const char* file) {
    const char* name = std::getenv("VAULTRY_CALLS_IN");
    const int calls = name == nullptr ? -1 : open(name, O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (calls >= 0) {
        dprintf(calls, "%s %s\n", what, file);
        close(calls);
    }
}

} // namespace

extern "C" __attribute__((visibility("default"))) int fsync(int file) {
    using Sync = int (*)(int);
    static const auto next = reinterpret_cast<Sync>(dlsym(RTLD_NEXT, "fsync"));
    struct stat found {};
    fstat(file, &found);
    Note("sync", S_ISDIR(found.st_mode) ? "folder" : "new file");
    if (std::getenv("VAULTRY_SYNC_FAILS") != nullptr) {
        errno = EIO;
        return -1;
    }
    return next(file);
}

extern "C" __attribute__((visibility("default"))) int rename(const char* from, const char* to) {
    using Rename = int (*)(const char*, const char*);
    static const auto next = reinterpret_cast<Rename>(dlsym(RTLD_NEXT, "rename"));
    Note("rename to", basename(to));
    return next(from, to);
}

// How the module for pictures in pixels draws. It is never done, as a hostile picture may be.
extern "C" __attribute__((visibility("default"))) int
rsvg_handle_render_document(void* handle, void* context, const void* area, void** fault) {
    using Render = int (*)(void*, void*, const void*, void**);
    const long signal = NumberIn("VAULTRY_DRAWS_TILL");
    if (signal != 0) {
        kill(getpid(), static_cast<int>(signal));
        while (true) {
            pause();
        }
    }
    static const auto next =
        reinterpret_cast<Render>(dlsym(RTLD_NEXT, "rsvg_handle_render_document"));
    return next(handle, context, area, fault);
}
