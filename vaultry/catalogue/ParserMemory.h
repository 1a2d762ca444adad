// SPDX-License-Identifier: MIT
// The memory that the parser holds. Not installed.
#pragma once

#include <xercesc/framework/MemoryManager.hpp>

#include <cstddef>

namespace Tarnex {

class LoadBudget;

/// Tells a budget of every request of the parser for memory, which is all that can be seen of what
/// it does between two events, the expansion of entities among it. Throws
/// xercesc::OutOfMemoryException when the budget has no more, std::bad_alloc when the machine has
/// not. What the parser loses when it is left is taken back with this object.
class ParserMemory : public xercesc::MemoryManager {
public:
    /// The budget is not owned.
    explicit ParserMemory(LoadBudget& budget) : budget(budget) {}
    ~ParserMemory() override;
    ParserMemory(const ParserMemory&) = delete;
    ParserMemory& operator=(const ParserMemory&) = delete;

    xercesc::MemoryManager* getExceptionMemoryManager() override;
    void* allocate(XMLSize_t size) override;
    void deallocate(void* block) override;

private:
    // Stands in front of each block and keeps the alignment of what follows.
    struct alignas(std::max_align_t) BlockHead {
        std::size_t size; // of head and block
        BlockHead* previous;
        BlockHead* next;
    };

    void* Allocate(XMLSize_t size);
    void Free(BlockHead* head);

    LoadBudget& budget;
    bool refused = false;
    BlockHead* last = nullptr;
};

} // namespace Tarnex
