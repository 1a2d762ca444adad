// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/MemoryBudget.h>

#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <new>

namespace Tarnex {

namespace {

// Stands in front of each block and keeps the alignment of what follows.
struct alignas(std::max_align_t) BlockHead {
    std::size_t size;
};

} // namespace

// An exception outlives the parse and must not hold what the budget handed out.
xercesc::MemoryManager* MemoryBudget::getExceptionMemoryManager() {
    return xercesc::XMLPlatformUtils::fgMemoryManager;
}

void* MemoryBudget::allocate(XMLSize_t size) {
    if (size > left || left - size < sizeof(BlockHead)) {
        throw xercesc::OutOfMemoryException();
    }
    const std::size_t whole = size + sizeof(BlockHead);
    void* memory = ::operator new(whole);
    left -= whole;
    return ::new (memory) BlockHead{whole} + 1;
}

void MemoryBudget::deallocate(void* block) {
    if (block == nullptr) {
        return;
    }
    BlockHead* head = static_cast<BlockHead*>(block) - 1;
    left += head->size;
    ::operator delete(head);
}

} // namespace Tarnex
