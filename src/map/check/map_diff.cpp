#include "map/check/map_diff.h"

#include <algorithm>
#include <deque>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "data/c_numbers.h"
#include "data/control_escapes.h"
#include "data/member_kinds.h"
#include "data/same_value.h"

namespace quorvel {

namespace {

std::string MemberLine(const MemberDef& member, std::string_view fact) {
  std::string line = "member ";
  AppendWithEscapes(line, member.GetName());
  return (line += ": ") += fact;
}

/// One member as one of the two maps has it.
struct ComparedMember {
  explicit ComparedMember(const MemberDef& def) : member(&def) { def.ConstructValue(&standard); }

  const void* Slot(ClassInstance instance) const {
    return instance == ClassInstance::None ? &standard : member->GetValuePtr(instance);
  }

  const MemberDef* member;
  std::uint32_t standard = 0;  ///< slot of the default, for cells without a record
};

struct MemberPair {
  ComparedMember a, b;
};

bool HoldsSame(const MemberPair& pair, ClassInstance a, ClassInstance b) {
  return SameValue(*pair.a.member, pair.a.Slot(a), *pair.b.member, pair.b.Slot(b));
}

/// The records of one map in ascending order of their cells.
class RecordWalk {
 public:
  explicit RecordWalk(const CellGrid& grid) : grid_(grid), next_(grid.Following(-1)) {}

  const std::optional<CellRecord>& Next() const { return next_; }

  /// The data of the cell's record if the walk stands on it; then steps past it.
  ClassInstance Take(CellCoord cell) {
    while (next_ && IsBefore({next_->column, next_->row}, cell)) next_ = grid_.Following(next_->index);
    if (!next_ || CellCoord{next_->column, next_->row} != cell) return ClassInstance::None;
    const ClassInstance data = next_->data;
    next_ = grid_.Following(next_->index);
    return data;
  }

  static bool IsBefore(CellCoord a, CellCoord b) {
    return a.row != b.row ? a.row < b.row : a.column < b.column;
  }

 private:
  const CellGrid& grid_;
  std::optional<CellRecord> next_;
};

/// The members of the second map by name, each given out once, equal names in their order.
class NamesakesInB {
 public:
  explicit NamesakesInB(const ClassDef& cellClass) {
    for (const auto& member : cellClass.Members()) byName_[member->GetName()].push_back(member.get());
  }

  const MemberDef* TakeNext(std::string_view name) {
    const auto found = byName_.find(name);
    if (found == byName_.end() || found->second.empty()) return nullptr;
    const MemberDef* member = found->second.front();
    found->second.pop_front();
    taken_.insert(member);
    return member;
  }

  bool WasTaken(const MemberDef& member) const { return taken_.contains(&member); }

 private:
  std::unordered_map<std::string_view, std::deque<const MemberDef*>> byName_;
  std::unordered_set<const MemberDef*> taken_;
};

class MapComparison {
 public:
  MapComparison(const MapContents& a, const MapContents& b, const LineSink& report)
      : a_(a), b_(b), report_(report) {}

  bool Run() {
    CompareSizes();
    MatchMembers();
    CompareCells();
    return equal_;
  }

 private:
  void Report(const std::string& line) {
    equal_ = false;
    report_(line);
  }

  void CompareSizes() {
    const CellGrid &a = *a_.m_pGrid, &b = *b_.m_pGrid;
    if (a.Width() == b.Width() && a.Height() == b.Height()) return;
    Report("size: " + FormatInt(a.Width()) + "x" + FormatInt(a.Height()) + " -> " + FormatInt(b.Width()) +
           "x" + FormatInt(b.Height()));
  }

  void MatchMembers() {
    NamesakesInB namesakes(*b_.m_pCellClass);
    for (const auto& member : a_.m_pCellClass->Members()) {
      if (const MemberDef* twin = namesakes.TakeNext(member->GetName()))
        Match(*member, *twin);
      else
        Report(MemberLine(*member, "only in A"));
    }
    for (const auto& member : b_.m_pCellClass->Members()) {
      if (!namesakes.WasTaken(*member)) Report(MemberLine(*member, "only in B"));
    }
  }

  void Match(const MemberDef& a, const MemberDef& b) {
    if (a.GetKind() != b.GetKind()) {
      std::string kinds(KindName(a.GetKind()));
      Report(MemberLine(a, (kinds += " -> ") += KindName(b.GetKind())));
    } else if (a.GetKind() != MemberKind::Object) {
      pairs_.push_back({ComparedMember(a), ComparedMember(b)});
    }
  }

  bool SameDefaults() const {
    return std::all_of(pairs_.begin(), pairs_.end(), [](const MemberPair& pair) {
      return HoldsSame(pair, ClassInstance::None, ClassInstance::None);
    });
  }

  void CompareCells() {
    if (pairs_.empty()) return;
    if (SameDefaults())
      CompareRecords();
    else
      CompareEveryCell();
  }

  /// With equal defaults only cells that have a record in either map can differ.
  void CompareRecords() {
    RecordWalk walkA(*a_.m_pGrid), walkB(*b_.m_pGrid);
    while (walkA.Next() || walkB.Next()) {
      const CellCoord cell = FirstOf(walkA.Next(), walkB.Next());
      const ClassInstance inA = walkA.Take(cell), inB = walkB.Take(cell);
      if (a_.m_pGrid->IsValid(cell) && b_.m_pGrid->IsValid(cell)) CompareCell(cell, inA, inB);
    }
  }

  void CompareEveryCell() {
    RecordWalk walkA(*a_.m_pGrid), walkB(*b_.m_pGrid);
    const std::int32_t columns = std::min(a_.m_pGrid->Width(), b_.m_pGrid->Width());
    const std::int32_t rows = std::min(a_.m_pGrid->Height(), b_.m_pGrid->Height());
    for (std::int32_t row = 0; row < rows; ++row) {
      for (std::int32_t column = 0; column < columns; ++column) {
        const CellCoord cell{column, row};
        CompareCell(cell, walkA.Take(cell), walkB.Take(cell));
      }
    }
  }

  static CellCoord FirstOf(const std::optional<CellRecord>& a, const std::optional<CellRecord>& b) {
    const CellCoord inA = a ? CellCoord{a->column, a->row} : CellCoord{};
    const CellCoord inB = b ? CellCoord{b->column, b->row} : CellCoord{};
    if (!a) return inB;
    return b && RecordWalk::IsBefore(inB, inA) ? inB : inA;
  }

  void CompareCell(CellCoord cell, ClassInstance inA, ClassInstance inB) {
    for (const MemberPair& pair : pairs_) {
      if (!HoldsSame(pair, inA, inB)) Report(CellLine(cell, pair, inA, inB));
    }
  }

  std::string CellLine(CellCoord cell, const MemberPair& pair, ClassInstance inA, ClassInstance inB) const {
    std::string line = FormatInt(a_.m_pGrid->IndexOf(cell)) + "(" + FormatInt(cell.column) + ":" +
                       FormatInt(cell.row) + ") ";
    AppendWithEscapes(line, pair.a.member->GetName());
    line += ": ";
    std::string value;
    pair.a.member->FormatValue(value, pair.a.Slot(inA));
    AppendWithEscapes(line, value);
    line += " -> ";
    pair.b.member->FormatValue(value, pair.b.Slot(inB));
    AppendWithEscapes(line, value);
    return line;
  }

  const MapContents& a_;
  const MapContents& b_;
  const LineSink& report_;
  std::vector<MemberPair> pairs_;
  bool equal_ = true;
};

}  // namespace

bool DiffMaps(const MapContents& a, const MapContents& b, const LineSink& report) {
  return MapComparison(a, b, report).Run();
}

}  // namespace quorvel
