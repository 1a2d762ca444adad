// SPDX-License-Identifier: MIT
// Memory of small objects, used again.
#pragma once

#include <cstddef>
#include <mutex>
#include <new>
#include <vector>

namespace Tarnex {

/// Pieces of memory of one size that one thread may hand out. Nothing is done when a list begins or
/// ends, so that each thread can have one; what it holds then belongs to its PieceStock.
class FreeList {
public:
    /// True when nothing can be taken.
    bool IsEmpty() const { return first == nullptr; }

    /// A piece of a list that is not empty.
    void* Take() {
        void* piece = first;
        first = first->next;
        return piece;
    }

    /// Takes a piece, of any thread's list; null is ignored.
    void Give(void* piece) noexcept {
        if (piece != nullptr) {
            first = new (piece) Spare{first, nullptr};
        }
    }

private:
    template <std::size_t Size>
    friend class PieceStock;

    struct Spare {
        Spare* next;
        Spare* nextList; // of the first piece of a list that was given back
    };

    Spare* first = nullptr;
};

/// Fills the lists of all threads. Levels are made and dropped by the thousand, and asking the
/// system for each of their cells costs more than filling it. Memory is taken by the block, so that
/// objects made together lie together, and given back with the stock: it holds as much as was in
/// use at any one time. Safe to be used by several threads at once.
template <std::size_t Size>
class PieceStock {
public:
    PieceStock() = default;
    PieceStock(const PieceStock&) = delete;
    PieceStock& operator=(const PieceStock&) = delete;

    /// No piece may be in use any more, and no list may hold any.
    ~PieceStock() {
        for (void* block : blocks) {
            ::operator delete(block, kCacheLine);
        }
    }

    /// Gives an empty list pieces of `Size` bytes, fit for any object: those of a list that was
    /// given back, or new ones. Throws std::bad_alloc.
    void Fill(FreeList& list) {
        const std::lock_guard<std::mutex> lock(mutex);
        if (spares == nullptr) {
            AddBlock(list);
            return;
        }
        list.first = spares;
        spares = spares->nextList;
    }

    /// Takes all that a list holds, for whichever thread asks next.
    void TakeBack(FreeList& list) noexcept {
        if (list.IsEmpty()) {
            return;
        }
        const std::lock_guard<std::mutex> lock(mutex);
        list.first->nextList = spares;
        spares = list.first;
        list.first = nullptr;
    }

private:
    static constexpr std::size_t kAlignment = alignof(std::max_align_t);
    static constexpr std::size_t kPiece = (Size + kAlignment - 1) / kAlignment * kAlignment;
    static_assert(kPiece >= sizeof(FreeList::Spare));

    static constexpr std::size_t kPerBlock = 128;
    static constexpr std::align_val_t kCacheLine{64};

    void AddBlock(FreeList& list) {
        blocks.reserve(blocks.size() + 1);
        auto* block = static_cast<std::byte*>(::operator new(kPerBlock* kPiece, kCacheLine));
        blocks.push_back(block);
        // Handed out in ascending order: the processor fetches ahead that way.
        for (std::size_t i = kPerBlock; i > 0; --i) {
            list.Give(block + (i - 1) * kPiece);
        }
    }

    std::mutex mutex;
    FreeList::Spare* spares = nullptr; // the first pieces of lists
    std::vector<void*> blocks;
};

} // namespace Tarnex
