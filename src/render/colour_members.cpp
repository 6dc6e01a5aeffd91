#include "render/colour_members.h"

#include "data/class_def.h"
#include "map/grid/hex_grid.h"

namespace quorvel {
namespace {

/// Place of an index member among the class's members, -1 for any other name.
int FindIndexMember(const ClassDef& cellClass, const std::string& name) {
  if (name.empty()) return -1;
  const MemberDef* found = cellClass.FindMember(name);
  if (!found || found->GetKind() != MemberKind::Index) return -1;
  int place = 0;
  while (cellClass.Members()[static_cast<std::size_t>(place)].get() != found) ++place;
  return place;
}

/// The next index member from `place` on, which is looked at last; -1 where there is none.
int NextIndexMember(const ClassDef& cellClass, int place, int step) {
  const auto& members = cellClass.Members();
  const int count = static_cast<int>(members.size());
  for (int seen = 0; seen < count; ++seen) {
    place = (place + step + count) % count;
    if (members[static_cast<std::size_t>(place)]->GetKind() == MemberKind::Index) return place;
  }
  return -1;
}

}  // namespace

const MemberDef* SelectIndexMember(const ClassDef* cellClass, std::string& name, int step) {
  int place = -1;
  if (cellClass) {
    place = FindIndexMember(*cellClass, name);
    if (place < 0) place = NextIndexMember(*cellClass, -1, +1);
    if (place >= 0 && step != 0) place = NextIndexMember(*cellClass, place, step);
  }
  const MemberDef* selected =
      place < 0 ? nullptr : cellClass->Members()[static_cast<std::size_t>(place)].get();
  name = selected ? selected->GetName() : std::string();
  return selected;
}

QRgb MappedColour(const MemberDef* member, const CellRecord& record) {
  constexpr QRgb kOpaque = 0xff000000;
  return member ? kOpaque | (member->GetMappedValue(record.data) & 0xffffff) : kOpaque;
}

}  // namespace quorvel
