// SPDX-License-Identifier: MIT
// The memory that the parser may hold. Not installed.
#pragma once

#include <xercesc/framework/MemoryManager.hpp>

#include <cstddef>

namespace Tarnex {

/// Hands out memory until the budget is spent, then throws xercesc::OutOfMemoryException; when
/// the machine has no more, std::bad_alloc. The number of entities is limited, but not their
/// length: a short document can blow a value up to more than the machine has before anything of it
/// is delivered.
class MemoryBudget : public xercesc::MemoryManager {
public:
    /// The most that may be held at one time. [bytes]
    explicit MemoryBudget(std::size_t budget) : left(budget) {}

    xercesc::MemoryManager* getExceptionMemoryManager() override;
    void* allocate(XMLSize_t size) override;
    void deallocate(void* block) override;

private:
    std::size_t left;
};

} // namespace Tarnex
