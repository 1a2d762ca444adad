// SPDX-License-Identifier: MIT
// Loaded in front of the program's libraries: makes allocations fail and files vanish, as the
// environment says. What libraries allocate before the program itself begins is left out.
//   VAULTRY_FAIL_AT=n        the n-th allocation fails
//   VAULTRY_FAIL_ON=1        and all after it
//   VAULTRY_COUNT_IN=file    the number of allocations is written there at the end
//   VAULTRY_VANISHES=file    it is removed as soon as it was opened once
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include <dlfcn.h>
#include <unistd.h>

namespace {

long NumberIn(const char* variable) {
    const char* text = std::getenv(variable);
    return text == nullptr ? 0 : std::atol(text);
}

long allocations = 0;
bool begun = false;

bool Fails() {
    static const long failing = NumberIn("VAULTRY_FAIL_AT");
    static const bool goesOn = NumberIn("VAULTRY_FAIL_ON") != 0;
    if (!begun) {
        return false;
    }
    ++allocations;
    return allocations == failing || (goesOn && failing > 0 && allocations > failing);
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
        std::fprintf(file, "%ld\n", allocations);
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
    begun = true;
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
