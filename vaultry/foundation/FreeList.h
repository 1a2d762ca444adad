// SPDX-License-Identifier: MIT
// Memory of small objects, used again.
#pragma once

#include <cstddef>
#include <new>

namespace Tarnex {

/// Keeps the memory of objects of `Size` bytes that were freed and hands it out again. Levels are
/// made and dropped by the thousand, and asking the system for each of their cells costs more than
/// filling it. What is kept is never given back, so it holds as much as the largest run needed.
/// For one thread, as everything in the library.
template <std::size_t Size>
class FreeList {
public:
    void* Take() {
        if (spares == nullptr) {
            return ::operator new(Size);
        }
        void* memory = spares;
        spares = spares->next;
        return memory;
    }

    void Give(void* memory) noexcept {
        if (memory != nullptr) {
            spares = new (memory) Spare{spares};
        }
    }

private:
    struct Spare {
        Spare* next;
    };
    static_assert(Size >= sizeof(Spare));

    Spare* spares = nullptr;
};

} // namespace Tarnex
