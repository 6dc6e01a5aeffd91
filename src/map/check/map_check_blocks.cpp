#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "data/c_numbers.h"
#include "map/check/map_check_header.h"
#include "map/file/map_file_layout.h"

namespace quorvel {

namespace {

class BlockCheck {
 public:
  BlockCheck(std::streambuf& file, const NumberedText& text, const MapContents& contents,
             const ProblemSink& report)
      : file_(file), text_(text), contents_(contents), report_(report) {}

  void Run() {
    const auto data = Offset(kDataOffsetPath), texts = Offset(kTextOffsetPath);
    if (data) CheckPadding(static_cast<std::int64_t>(text_.EndPosition()), *data);
    if (data && texts) CheckDataBlock(*data, *texts);
    if (texts) CheckTextBlock(*texts);
  }

 private:
  void Report(std::string problem) { report_({0, std::move(problem)}); }

  std::optional<std::int64_t> Offset(std::string_view path) {
    if (const DataLeaf* leaf = text_.Tree().FindLeaf(path)) return ToInt(leaf->GetValue());
    Report(fmt::format("{} is missing", path));
    return {};
  }

  void CheckPadding(std::int64_t textEnd, std::int64_t data) {
    if (data != static_cast<std::int64_t>(PaddedTextBytes(static_cast<std::uint64_t>(textEnd)))) {
      Report(fmt::format("the text ends at {} and the data block begins at {}, not at the next multiple of 4",
                         textEnd, data));
      return;
    }
    std::array<char, kBlockAlignment> padding{};
    file_.pubseekpos(textEnd, std::ios_base::in);
    file_.sgetn(padding.data(), data - textEnd);
    if (std::any_of(padding.begin(), padding.end(), [](char byte) { return byte != 0; }))
      Report("not all bytes between the text and the data block are zero");
  }

  void CheckDataBlock(std::int64_t data, std::int64_t texts) {
    const std::int64_t bytes = DataBlockBytes(contents_.m_pGrid->CellCount(), contents_.m_pCellClass);
    if (data + bytes != texts)
      Report(fmt::format("the data block of {} bytes ends at {}, but the text block begins at {}", bytes,
                         data + bytes, texts));
  }

  void CheckTextBlock(std::int64_t texts) {
    const auto fileEnd =
        static_cast<std::int64_t>(file_.pubseekoff(0, std::ios_base::end, std::ios_base::in));
    const std::int64_t bytes = BytesOfTexts();
    if (fileEnd - texts != bytes)
      Report(fmt::format("the text block has {} bytes, but the texts of the cells take {}", fileEnd - texts,
                         bytes));
  }

  std::int64_t BytesOfTexts() const {
    std::int64_t bytes = 0;
    const CellGrid& grid = *contents_.m_pGrid;
    for (const StringPlace& place : StringPlaces(*contents_.m_pCellClass)) {
      const StringMember& text = *place.member;
      for (auto record = grid.Following(-1); record; record = grid.Following(record->index))
        bytes += static_cast<std::int64_t>(text.Text(text.GetValuePtr(record->data)).size()) + 1;
    }
    return bytes;
  }

  std::streambuf& file_;
  const NumberedText& text_;
  const MapContents& contents_;
  const ProblemSink& report_;
};

}  // namespace

void CheckBlocks(std::streambuf& file, const NumberedText& text, const MapContents& contents,
                 const ProblemSink& report) {
  BlockCheck(file, text, contents, report).Run();
}

}  // namespace quorvel
