#include "cli/fill_log.h"

#include "cli/dump_words.h"

namespace quorvel {

void FillLog::SetMessageText(std::string_view text) {
  out_.Line() += "text";
  if (!text.empty()) out_.Line().append(" ").append(text);
  out_.EndLine();
}

void FillLog::ShowProgress(bool show) {
  out_.Line() += show ? "show" : "hide";
  out_.EndLine();
}

void FillLog::SetProgressPos(int percent) {
  AppendDecimal(out_.Line() += "progress ", percent);
  out_.EndLine();
}

void FillLog::OnCellChanged(const CellRecord& record) {
  AppendDecimal(out_.Line() += "update ", record.index);
  out_.EndLine();
}

}  // namespace quorvel
