#pragma once

namespace quorvel {

/// Lets one allocation of this thread fail with std::bad_alloc, the one after `granted` others, during this
/// object's life. One at a time.
class FailingMemory {
 public:
  explicit FailingMemory(int granted);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  /// Whether there were that many allocations.
  static bool HasFailed();
};

/// Calls `act()` as often as it allocates, each time with the next allocation failing, and a last time with
/// none; `check()` after each call.
template <class Act, class Check>
void FailEveryAllocation(Act act, Check check) {
  bool hasFailed = true;
  for (int granted = 0; hasFailed; ++granted) {
    {
      const FailingMemory memory(granted);
      act();
      hasFailed = FailingMemory::HasFailed();
    }
    check();
  }
}

}  // namespace quorvel
