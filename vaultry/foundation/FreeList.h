// SPDX-License-Identifier: MIT
// Memory of small objects, used again.
#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace Tarnex {

/// Keeps the memory of objects of `Size` bytes that were freed and hands it out again. Levels are
/// made and dropped by the thousand, and asking the system for each of their cells costs more than
/// filling it. Memory is taken by the block, so that objects made together lie together, and given
/// back with the list: it holds as much as the largest run needed.
/// For one thread, as everything in the library.
template <std::size_t Size>
class FreeList {
public:
    FreeList() = default;
    FreeList(const FreeList&) = delete;
    FreeList& operator=(const FreeList&) = delete;

    /// No memory taken from the list may be in use any more.
    ~FreeList() {
        for (void* block : blocks) {
            ::operator delete(block, kCacheLine);
        }
    }

    /// Memory of `Size` bytes. Throws std::bad_alloc.
    void* Take() {
        if (spares == nullptr) {
            AddBlock();
        }
        void* memory = spares;
        spares = spares->next;
        return memory;
    }

    /// Takes back what Take gave; null is ignored.
    void Give(void* memory) noexcept {
        if (memory != nullptr) {
            spares = new (memory) Spare{spares};
        }
    }

private:
    struct Spare {
        Spare* next;
    };
    // The size of an object is a multiple of its alignment, so that each lies as it must.
    static_assert(Size >= sizeof(Spare) && Size % alignof(Spare) == 0);

    static constexpr std::size_t kPerBlock = 128;
    static constexpr std::align_val_t kCacheLine{64};

    void AddBlock() {
        blocks.reserve(blocks.size() + 1);
        auto* block = static_cast<std::byte*>(::operator new(kPerBlock* Size, kCacheLine));
        blocks.push_back(block);
        // Handed out in ascending order: the processor fetches ahead that way.
        for (std::size_t i = kPerBlock; i > 0; --i) {
            Give(block + (i - 1) * Size);
        }
    }

    Spare* spares = nullptr;
    std::vector<void*> blocks;
};

} // namespace Tarnex
