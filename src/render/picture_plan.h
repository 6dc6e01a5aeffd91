#pragma once

#include <optional>
#include <string>

#include <QSize>

#include "platform/documents/feedback.h"
#include "render/map_extent.h"
#include "render/map_look.h"
#include "render/picture.h"

namespace quorvel {

/// What pictures of one file format have in common.
struct PictureKind {
  std::int64_t maxSidePx;
  Ground usualGround;  ///< where the request asks for neither
};

/// What a request comes to on a map.
struct PicturePlan {
  MapLook look;
  MapRect part;  ///< at the look's cell size, which is one of the ten, or what the request says
  QSize size;    ///< of the picture; what is smaller than the part is averaged down

  /// None when there is no grid, when the cells are not on it, or when a side would be longer than
  /// the kind allows: a line of the error text says why.
  static std::optional<PicturePlan> For(const MapContents& map, const PictureRequest& request,
                                        const PictureKind& kind, std::string& errorText);
};

/// The progress bar and the wait cursor are shown during its life.
class PictureProgress {
 public:
  explicit PictureProgress(Feedback& feedback) : feedback_(feedback), wait_(feedback) {
    feedback_.SetProgressPos(0);
    feedback_.ShowProgress(true);
  }
  ~PictureProgress() { feedback_.ShowProgress(false); }
  PictureProgress(const PictureProgress&) = delete;
  PictureProgress& operator=(const PictureProgress&) = delete;

  void Report(std::int64_t done, std::int64_t all) {
    feedback_.SetProgressPos(static_cast<int>(done * 100 / all));
    feedback_.Pump();
  }

 private:
  Feedback& feedback_;
  WaitCursor wait_;
};

}  // namespace quorvel
