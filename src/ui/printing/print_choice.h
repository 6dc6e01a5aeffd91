#pragma once

#include "render/map_look.h"
#include "render/sheet_layout.h"

namespace quorvel {

/// What the user chose beside printer and pages.
struct PrintChoice {
  SheetSize size;  ///< neither: a map pixel as a pixel of the printer
  Labels labels = Labels::Shown;
};

}  // namespace quorvel
