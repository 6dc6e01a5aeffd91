#pragma once

#include <memory>

#include "map/document/services.h"
#include "ui/frame/property_boxes.h"

namespace quorvel {

class CToolOptionsBar;

/// Shows a document's tool in the tool options bar.
class QtToolOptions final : public ToolOptions {
 public:
  /// Null before the bar goes.
  void Attach(CToolOptionsBar* bar);

  void ShowTool(CVastrelDoc& document) override;
  /// No document is in front: nothing to choose.
  void ShowNothing();

 private:
  CToolOptionsBar* bar_ = nullptr;
  std::unique_ptr<PropertyBoxes> boxes_;
};

}  // namespace quorvel
