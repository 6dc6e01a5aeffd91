#pragma once

#include "cli/results.h"
#include "map/fill/make_map.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// Every event of a fill, one a line in the order of arrival: `show`, `hide`, `progress N`, `text MESSAGE`
/// (the bare word clears it) and `update INDEX` for a cell that got a value.
class FillLog : public NullFeedback, public NewMapListener {
 public:
  explicit FillLog(Results& out) : out_(out) {}

  void SetMessageText(std::string_view text) override;
  void ShowProgress(bool show) override;
  void SetProgressPos(int percent) override;
  bool WantsEveryEvent() const override { return true; }

  void OnCellChanged(const CellRecord& record) override;

 private:
  Results& out_;
};

}  // namespace quorvel
