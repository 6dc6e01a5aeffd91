#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "data/string_member.h"
#include "map/file/map_reader.h"
#include "map/file/map_writer.h"

// Loads any bytes as a map and holds the reader to its laws: both roads make the same of a file, a refused
// one has a line that says so, and what is planned for the file of a loaded map is what is written.

namespace {

using namespace quorvel;

constexpr std::uint64_t kMaxWritten = 1 << 20;

void Require(bool law) {
  if (!law) std::abort();
}

/// The bits of a number, the text of a string: a road may number the texts in its own way.
std::string Value(const MemberDef& member, const void* slot) {
  if (member.GetKind() == MemberKind::Object) return {};
  if (member.GetKind() != MemberKind::String) return std::string(static_cast<const char*>(slot), 4);
  return std::string(static_cast<const StringMember&>(member).Text(slot));
}

bool SameRecord(const MapContents& a, const CellRecord& inA, const MapContents& b, const CellRecord& inB) {
  const auto& membersA = a.m_pCellClass->Members();
  const auto& membersB = b.m_pCellClass->Members();
  if (inA.index != inB.index || membersA.size() != membersB.size()) return false;
  for (std::size_t i = 0; i < membersA.size(); ++i) {
    if (Value(*membersA[i], membersA[i]->GetValuePtr(inA.data)) !=
        Value(*membersB[i], membersB[i]->GetValuePtr(inB.data))) {
      return false;
    }
  }
  return true;
}

bool SameMap(const MapContents& a, const MapContents& b) {
  if (a.m_nDataType != b.m_nDataType || (!a.m_pGrid) != (!b.m_pGrid)) return false;
  if (!a.m_pGrid) return true;
  if (a.m_pGrid->Width() != b.m_pGrid->Width() || a.m_pGrid->Height() != b.m_pGrid->Height()) return false;
  auto inA = a.m_pGrid->Following(-1);
  auto inB = b.m_pGrid->Following(-1);
  for (; inA && inB; inA = a.m_pGrid->Following(inA->index), inB = b.m_pGrid->Following(inB->index)) {
    if (!SameRecord(a, *inA, b, *inB)) return false;
  }
  return !inA && !inB;
}

void SaveAgain(const MapContents& contents) {
  std::string errorText;
  const auto plan = PlanMapFile(contents, "", errorText);
  Require(plan.has_value() == errorText.empty());
  if (!plan || plan->fileBytes > kMaxWritten) return;
  std::stringbuf file;
  NullFeedback feedback;
  SaveMap(*plan, contents, file, feedback);
  Require(file.view().size() == plan->fileBytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::stringbuf file(std::string(reinterpret_cast<const char*>(data), size));
  NullFeedback feedback;
  std::string streamedErrors;
  std::string errorText;
  const auto streamed = ReadMap(file, Road::Streamed, feedback, streamedErrors);
  const auto through = ReadMap(file, Road::Tree, feedback, errorText);
  Require(through.has_value());
  Require(through->m_pGrid || !errorText.empty());
  if (streamed) Require(SameMap(*streamed, *through) && streamedErrors == errorText);
  if (through->m_pGrid) SaveAgain(*through);
  return 0;
}
