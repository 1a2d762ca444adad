// SPDX-License-Identifier: MIT
// The memory that the parser holds. Not installed.
#pragma once

#include <xercesc/framework/MemoryManager.hpp>

#include <cstddef>
#include <memory>
#include <unordered_map>

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

    xercesc::MemoryManager* getExceptionMemoryManager() override;
    void* allocate(XMLSize_t size) override;
    void deallocate(void* block) override;

private:
    struct Block {
        std::unique_ptr<std::byte[]> bytes;
        std::size_t whole = 0; // with this
    };

    void* Allocate(XMLSize_t size);

    LoadBudget& budget;
    bool refused = false;
    std::unordered_map<void*, Block> blocks; // by where they begin
};

} // namespace Tarnex
