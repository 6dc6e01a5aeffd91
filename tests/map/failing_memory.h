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

/// Calls `act()`, which tells whether it was done, as often as it allocates, each time with the next
/// allocation failing, and a last time with none; `check(isDone)` after each call. How often it was not done.
template <class Act, class Check>
int RefusalsOf(Act act, Check check) {
  int refusals = 0;
  bool hasFailed = true;
  for (int granted = 0; hasFailed; ++granted) {
    bool isDone = false;
    {
      const FailingMemory memory(granted);
      isDone = act();
      hasFailed = FailingMemory::HasFailed();
    }
    refusals += isDone ? 0 : 1;
    check(isDone);
  }
  return refusals;
}

}  // namespace quorvel
