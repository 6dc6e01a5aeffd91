#include "map/check/map_check.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

#include "map/check/map_check_cells.h"
#include "map/check/map_check_header.h"
#include "map/check/map_check_text.h"
#include "map/file/map_reader.h"
#include "map/types/definitions.h"
#include "map/types/map_size_limits.h"
#include "map/types/type_reader.h"

namespace quorvel {

namespace {

void ReportLines(std::string_view errorText, const ProblemSink& report) {
  while (!errorText.empty()) {
    const std::size_t end = std::min(errorText.find('\n'), errorText.size());
    report({0, std::string(errorText.substr(0, end))});
    errorText.remove_prefix(std::min(end + 1, errorText.size()));
  }
}

/// A map is loaded whole, of definitions alone the types are built: they have no size yet that could be
/// refused.
Outcome Load(std::streambuf& file, const NumberedText& text, MapContents& contents, Feedback& feedback,
             const ProblemSink& report) {
  std::string errorText;
  if (!IsMapText(text.Tree())) {
    BuildTypes(text.Tree(), contents, errorText);
  } else if (LoadMapFile(file, contents, feedback, errorText) == Outcome::NoMemory) {
    return Outcome::NoMemory;
  }
  ReportLines(errorText, report);
  return Outcome::Done;
}

/// The types are read again, of nodes whose lines are known.
void CheckTypes(const NumberedText& text, const ProblemSink& report) {
  const DataBranch* classes = text.Tree().FindBranch("Classes");
  if (!classes) return;
  TypeList types;
  std::vector<TypeProblem> problems;
  ReadTypes(*classes, types, &problems);
  for (TypeProblem& problem : problems) report({text.LineOf(*problem.node), std::move(problem.text)});
}

void CheckMapClass(const ClassDef* mapClass, const ProblemSink& report) {
  MapSizeLimits limits;
  if (!GetMapSizeLimits(mapClass, limits))
    report({0, "class Map has no Width or no Height with a range of numbers"});
}

void CheckMapParts(std::streambuf& file, const NumberedText& text, const MapContents& contents,
                   const ProblemSink& report) {
  const bool binary = FormOf(contents) == FileForm::Binary;
  CheckHeader(text, FormOf(contents), report);
  if (!binary) CheckGalaxy(text, contents.m_pMapClass, report);
  if (!contents.m_pGrid || !contents.m_pCellClass) return;
  if (binary) {
    CheckBlocks(file, text, contents, report);
    CheckRecords(contents, report);
  } else {
    CheckTextCells(file, contents, report);
  }
}

}  // namespace

Outcome CheckFile(std::streambuf& file, Feedback& feedback, const ProblemSink& report) try {
  const NumberedText text(file, report);
  MapContents contents;
  const Outcome outcome = Load(file, text, contents, feedback, report);
  if (outcome != Outcome::Done) return outcome;
  CheckTypes(text, report);
  CheckMapClass(contents.m_pMapClass, report);
  if (IsMapText(text.Tree())) CheckMapParts(file, text, contents, report);
  return Outcome::Done;
} catch (const std::bad_alloc&) {
  return Outcome::NoMemory;
}

}  // namespace quorvel
