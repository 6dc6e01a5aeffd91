// Replaces the allocation functions of the whole test program.

#include "tests/map/failing_memory.h"

#include <cstdlib>
#include <new>

namespace quorvel {
namespace {

constexpr int kNever = -1;

/// Allocations that are granted before the one that fails.
thread_local int grantedFirst = kNever;
thread_local bool hasFailed = false;

void* Allocate(std::size_t bytes) {
  if (grantedFirst != kNever && grantedFirst-- == 0) {
    hasFailed = true;
    throw std::bad_alloc();
  }
  if (void* memory = std::malloc(bytes > 0 ? bytes : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

FailingMemory::FailingMemory(int granted) {
  grantedFirst = granted;
  hasFailed = false;
}

FailingMemory::~FailingMemory() {
  grantedFirst = kNever;
}

bool FailingMemory::HasFailed() {
  return hasFailed;
}

}  // namespace quorvel

void* operator new(std::size_t bytes) {
  return quorvel::Allocate(bytes);
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
