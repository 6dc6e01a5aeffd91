#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "data/instance_store.h"
#include "data/member_def.h"
#include "data/text_arena.h"
#include "data/type_def.h"

namespace quorvel {

/// A stretch of values that lie together both in a block and in a packed row of the same values without
/// object members.
struct BlockRun {
  std::int32_t packedOffset;
  std::int32_t blockOffset;
  std::int32_t bytes;
  bool operator==(const BlockRun&) const = default;
};

/// A class: typed members, and the value blocks made of them. Owns its members, its blocks and the texts in
/// them. A block holds the values in declaration order without gaps; every value takes a multiple of 4 bytes.
class ClassDef : public TypeDef {
 public:
  /// Sizes that would be larger are this; no instance of such a class can be made.
  static constexpr std::int32_t kMaxSize = 0x7ffffffc;

  explicit ClassDef(std::string_view name) : TypeDef(name) {}

  TypeKind GetKind() const override { return TypeKind::Class; }

  /// Appends the member, which gets this class's texts. Blocks that are live get the member's default.
  MemberDef* AddMember(std::unique_ptr<MemberDef> member);
  const std::vector<std::unique_ptr<MemberDef>>& Members() const { return members_; }
  /// The first member of that name, or null.
  MemberDef* FindMember(std::string_view name) const;

  /// Bytes of a block. A class that holds itself counts 0 bytes for the inner one. Linear in the number of
  /// members, and constant when no type has changed since.
  std::int32_t Size() const;

  /// Gives every member its offset, as `CreateInstance` does, and answers the size of a block.
  std::int32_t LayOut();

  /// A new block holding the members' defaults; None for a class without bytes or one of kMaxSize. Throws
  /// std::bad_alloc when memory runs out, and no block was made then.
  ClassInstance CreateInstance();
  /// `count` new blocks at once with successive numbers; the first number, or None and nothing made as above.
  ClassInstance CreateInstances(std::uint32_t count);
  /// True when the block was live and has ended. Its number may come back from `CreateInstance`.
  bool DestroyInstance(ClassInstance instance);
  bool IsLive(ClassInstance instance) const { return blocks_.IsLive(instance); }
  std::uint32_t CountInstances() const { return blocks_.CountLive(); }

  /// The bytes of a live block, aligned to 4; null for None. Good until a member is added.
  std::byte* Block(ClassInstance instance) const { return blocks_.Block(instance); }

  /// How a row of all values but objects', packed in declaration order, maps onto a block: mostly one run.
  std::vector<BlockRun> PackedRuns();
  /// Bytes of such a row: 4 for every member that is no object.
  std::int32_t PackedSize() const;

  /// The texts of all string members' slots, in this class's blocks or elsewhere.
  TextArena& Texts() { return texts_; }
  const TextArena& Texts() const { return texts_; }

  /// To be called when something changed that blocks are laid out or filled by.
  static void SchemaChanged() { schemaRevision_.fetch_add(1, std::memory_order_relaxed); }

 private:
  struct Measurement;
  class OpenMeasurements;

  bool IsMeasured() const { return sizeRevision_ == schemaRevision_.load(std::memory_order_relaxed); }
  void Measure() const;
  static const ClassDef* CountMembers(Measurement& measurement);
  bool PrepareBlocks();
  void AssignOffsets();
  std::vector<std::byte> MakePrototype() const;
  void MoveBlocks(std::span<const std::byte> prototype);

  /// Counts the changes of all schemas, so that a class knows with one look whether it, or one that it
  /// embeds, changed.
  static inline std::atomic<std::uint64_t> schemaRevision_{1};

  std::vector<std::unique_ptr<MemberDef>> members_;
  TextArena texts_;
  InstanceStore blocks_;
  std::vector<std::byte> prototype_;  ///< what new blocks hold; empty when none can be made
  std::size_t laidOutMembers_ = 0;    ///< members that the live blocks hold
  std::uint64_t prototypeRevision_ = 0;
  mutable std::int32_t size_ = 0;
  mutable std::uint64_t sizeRevision_ = 0;
  mutable bool measuring_ = false;
};

}  // namespace quorvel
