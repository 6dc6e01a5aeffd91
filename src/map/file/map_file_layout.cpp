#include "map/file/map_file_layout.h"

namespace quorvel {

std::int64_t DataBlockBytes(std::int64_t cells, const ClassDef* cellClass) {
  return kBlockHeadBytes + cells * (cellClass ? cellClass->PackedSize() : 0);
}

std::vector<StringPlace> StringPlaces(const ClassDef& cellClass) {
  std::vector<StringPlace> places;
  std::int32_t packedOffset = 0;
  for (const auto& member : cellClass.Members()) {
    if (member->GetKind() == MemberKind::String)
      places.push_back({static_cast<const StringMember*>(member.get()), packedOffset});
    if (member->GetKind() != MemberKind::Object) packedOffset += kValueBytes;
  }
  return places;
}

}  // namespace quorvel
