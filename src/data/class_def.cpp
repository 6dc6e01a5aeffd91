#include "data/class_def.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "data/object_member.h"

namespace quorvel {
namespace {

std::int32_t SaturatingSum(std::int32_t a, std::int32_t b) {
  return a > ClassDef::kMaxSize - b ? ClassDef::kMaxSize : a + b;
}

}  // namespace

MemberDef* ClassDef::AddMember(std::unique_ptr<MemberDef> member) {
  members_.push_back(std::move(member));
  members_.back()->class_ = this;
  SchemaChanged();
  if (CountInstances() > 0) PrepareBlocks();
  return members_.back().get();
}

MemberDef* ClassDef::FindMember(std::string_view name) const {
  const auto found = std::find_if(members_.begin(), members_.end(),
                                  [name](const auto& member) { return member->GetName() == name; });
  return found == members_.end() ? nullptr : found->get();
}

// ---- Layout

std::int32_t ClassDef::Size() const {
  if (!IsMeasured()) Measure();
  return size_;
}

/// A class that is being measured: what its members before `next` take.
struct ClassDef::Measurement {
  const ClassDef* type;
  std::size_t next = 0;
  std::int32_t bytes = 0;
};

/// The classes from the one asked for down to the one looked at. They are marked as long as they are here.
class ClassDef::OpenMeasurements {
 public:
  OpenMeasurements() = default;
  OpenMeasurements(const OpenMeasurements&) = delete;
  OpenMeasurements& operator=(const OpenMeasurements&) = delete;
  ~OpenMeasurements() {
    while (!IsEmpty()) Close();
  }

  bool IsEmpty() const { return open_.empty(); }
  Measurement& Innermost() { return open_.back(); }
  void Open(const ClassDef* type) {
    open_.push_back({type});
    type->measuring_ = true;
  }
  void Close() {
    open_.back().type->measuring_ = false;
    open_.pop_back();
  }

 private:
  std::vector<Measurement> open_;
};

/// Depth first over the embedded classes that are not measured yet. A loop, since files may chain any number
/// of classes.
void ClassDef::Measure() const {
  OpenMeasurements open;
  open.Open(this);
  while (!open.IsEmpty()) {
    Measurement& innermost = open.Innermost();
    if (const ClassDef* first = CountMembers(innermost)) {
      open.Open(first);
      continue;
    }
    innermost.type->size_ = innermost.bytes;
    innermost.type->sizeRevision_ = schemaRevision_.load(std::memory_order_relaxed);
    open.Close();
  }
}

/// Counts members up to one whose class must be measured first, and answers that class; null when all are
/// counted.
const ClassDef* ClassDef::CountMembers(Measurement& measurement) {
  const auto& members = measurement.type->members_;
  for (; measurement.next < members.size(); ++measurement.next) {
    const MemberDef& member = *members[measurement.next];
    std::int32_t size = 0;
    if (member.GetKind() != MemberKind::Object) {
      size = member.GetSize();
    } else if (const ClassDef* inner = EmbeddedClass(member)) {
      if (!inner->IsMeasured() && !inner->measuring_) return inner;
      static_cast<const ObjectMember&>(member).holdsNothing_ = inner->measuring_;
      if (!inner->measuring_) size = inner->size_;
    }
    measurement.bytes = SaturatingSum(measurement.bytes, size);
  }
  return nullptr;
}

std::int32_t ClassDef::LayOut() {
  if (CountInstances() > 0) {
    PrepareBlocks();
  } else {
    AssignOffsets();
  }
  return Size();
}

void ClassDef::AssignOffsets() {
  std::int32_t offset = 0;
  for (const auto& member : members_) offset = member->SetOffset(offset);
  laidOutMembers_ = members_.size();
}

std::vector<BlockRun> ClassDef::PackedRuns() {
  LayOut();
  std::vector<BlockRun> runs;
  std::int32_t packedOffset = 0;
  for (const auto& member : members_) {
    if (member->GetKind() == MemberKind::Object) continue;
    const std::int32_t blockOffset = member->GetOffset();
    if (runs.empty() || runs.back().blockOffset + runs.back().bytes != blockOffset) {
      runs.push_back({packedOffset, blockOffset, 0});
    }
    runs.back().bytes += member->GetSize();
    packedOffset += member->GetSize();
  }
  return runs;
}

std::int32_t ClassDef::PackedSize() const {
  std::int32_t size = 0;
  for (const auto& member : members_) {
    if (member->GetKind() != MemberKind::Object) size = SaturatingSum(size, member->GetSize());
  }
  return size;
}

// ---- Instances

ClassInstance ClassDef::CreateInstance() {
  if (!PrepareBlocks()) return ClassInstance::None;
  const ClassInstance instance = blocks_.Take();
  if (instance != ClassInstance::None) {
    std::memcpy(Block(instance), prototype_.data(), prototype_.size());
  }
  return instance;
}

ClassInstance ClassDef::CreateInstances(std::uint32_t count) {
  if (!PrepareBlocks()) return ClassInstance::None;
  const ClassInstance first = blocks_.TakeRun(count);
  if (first == ClassInstance::None) return first;
  for (std::uint32_t i = 0; i < count; ++i) {
    const auto instance = static_cast<ClassInstance>(static_cast<std::uint32_t>(first) + i);
    std::memcpy(Block(instance), prototype_.data(), prototype_.size());
  }
  return first;
}

bool ClassDef::DestroyInstance(ClassInstance instance) {
  return blocks_.Release(instance);
}

/// Brings prototype, offsets and blocks up to date; false when no instance can be made. Then, and when memory
/// runs out, all is as it was.
bool ClassDef::PrepareBlocks() {
  const std::uint64_t revision = schemaRevision_.load(std::memory_order_relaxed);
  if (prototypeRevision_ == revision) return !prototype_.empty();
  std::vector<std::byte> prototype = MakePrototype();
  if (CountInstances() > 0) {
    if (prototype.empty()) return false;
    MoveBlocks(prototype);
  } else {
    AssignOffsets();
    blocks_.Reset(static_cast<std::int32_t>(prototype.size()));
  }
  prototype_ = std::move(prototype);
  prototypeRevision_ = revision;
  return !prototype_.empty();
}

std::vector<std::byte> ClassDef::MakePrototype() const {
  if (Size() == kMaxSize) return {};
  std::vector<std::byte> prototype(static_cast<std::size_t>(Size()));
  std::size_t offset = 0;
  for (const auto& member : members_) {
    offset += static_cast<std::size_t>(member->ConstructValue(prototype.data() + offset));
  }
  return prototype;
}

/// Lays the live blocks out anew: what they held stays, members that are new get their defaults.
void ClassDef::MoveBlocks(std::span<const std::byte> prototype) {
  struct Extent {
    std::int32_t offset, bytes;
  };
  std::vector<Extent> held;
  for (std::size_t i = 0; i < laidOutMembers_; ++i) {
    const std::int32_t offset = members_[i]->GetOffset();
    const std::int32_t end = i + 1 < laidOutMembers_ ? members_[i + 1]->GetOffset() : blocks_.BlockBytes();
    held.push_back({offset, end - offset});
  }
  InstanceStore moved;
  moved.Reset(static_cast<std::int32_t>(prototype.size()));
  if (moved.TakeRun(blocks_.LastNumber()) == ClassInstance::None) throw std::bad_alloc();

  AssignOffsets();
  for (std::uint32_t number = 1; number <= blocks_.LastNumber(); ++number) {
    const auto instance = static_cast<ClassInstance>(number);
    if (!blocks_.IsLive(instance)) {
      moved.Release(instance);
      continue;
    }
    std::byte* block = moved.Block(instance);
    std::copy(prototype.begin(), prototype.end(), block);
    for (std::size_t i = 0; i < held.size(); ++i) {
      const std::int32_t bytes = std::min(held[i].bytes, members_[i]->GetSize());
      std::memcpy(block + members_[i]->GetOffset(), blocks_.Block(instance) + held[i].offset,
                  static_cast<std::size_t>(bytes));
    }
  }
  blocks_ = std::move(moved);
}

}  // namespace quorvel
