// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ParserMemory.h>

#include <vaultry/catalogue/LoadBudget.h>

#include <xercesc/internal/XMLReader.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <new>

namespace Tarnex {

namespace {

using Of = LoadBudget::Of;

// The parser reads the text of each entity, whatever its kind and wherever it is referred to,
// through a new reader: the one thing of this size, with a head of the parser's own. It tells
// nobody of the expansion of parameter entities, and limits that of general ones only. It can be
// left there as at any error in the reference.
constexpr bool IsReader(XMLSize_t size) {
    constexpr XMLSize_t kReader = sizeof(xercesc::XMLReader);
    return size >= kReader && size <= kReader + 2 * alignof(std::max_align_t);
}

} // namespace

ParserMemory::~ParserMemory() {
    while (last != nullptr) {
        BlockHead* const head = last;
        last = head->previous;
        ::operator delete(head);
    }
}

// An exception outlives the parse and must not hold what is taken back with it.
xercesc::MemoryManager* ParserMemory::getExceptionMemoryManager() {
    return xercesc::XMLPlatformUtils::fgMemoryManager;
}

void* ParserMemory::allocate(XMLSize_t size) {
    // What the parser needs before it has a place in the document, such as a reader of the document
    // itself, is no doing of the document's.
    if (budget.Place() != nullptr) {
        budget.Count(Of::Requests);
        if (IsReader(size)) {
            budget.Spend(Of::Expansions);
        }
    }
    try {
        return Allocate(size);
    } catch (...) {
        refused = true;
        throw;
    }
}

void* ParserMemory::Allocate(XMLSize_t size) {
    if (size > LoadBudget::Most(Of::Memory) ||
        !budget.Affords(Of::Memory, size + sizeof(BlockHead))) {
        throw xercesc::OutOfMemoryException();
    }
    const std::size_t whole = size + sizeof(BlockHead);
    auto* head = ::new (::operator new(whole)) BlockHead{whole, last, nullptr};
    budget.Count(Of::Memory, whole);
    if (last != nullptr) {
        last->next = head;
    }
    last = head;
    return head + 1;
}

// The parser frees some blocks before it asks for others in their place: when these are refused it
// frees the old ones again.
void ParserMemory::deallocate(void* block) {
    if (block != nullptr && !refused) {
        Free(static_cast<BlockHead*>(block) - 1);
    }
}

void ParserMemory::Free(BlockHead* head) {
    (head->next != nullptr ? head->next->previous : last) = head->previous;
    if (head->previous != nullptr) {
        head->previous->next = head->next;
    }
    budget.GiveBack(Of::Memory, head->size);
    ::operator delete(head);
}

} // namespace Tarnex
