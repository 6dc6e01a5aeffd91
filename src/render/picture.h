#pragma once

#include <cstdint>
#include <optional>
#include <streambuf>
#include <string>

#include <QSize>

#include "render/map_extent.h"
#include "render/map_look.h"
#include "render/sheet_layout.h"

namespace quorvel {

class Feedback;
struct MapContents;

/// Sheets of paper for a PDF, each with a margin of 10 mm.
struct PaperRequest {
  QSizeF sheetMm = {210, 297};  ///< sides from kMinSheetSideMm to kMaxSheetSideMm
  bool mayTurn = true;          ///< the map decides between upright and across
  SheetSize size;               ///< neither: a map pixel is 1/1200 inch
};
constexpr int kMinSheetSideMm = 50;
constexpr int kMaxSheetSideMm = 5080;
/// More of them would be a mistake.
constexpr std::int64_t kMaxSheets = 10'000;

/// What a picture file is to show. One picture pixel a map pixel, unless it is to fit; marks as in a window.
struct PictureRequest {
  float cellSizePx = 100;     ///< 10 to 100
  std::optional<QSize> fit;   ///< in place of it: the largest picture inside, of cells of at most 100 pixels
  std::string outlineMember;  ///< names of index members of the cell class; any other name, such as none,
  std::string fillMember;     ///< stands for the first index member
  Labels labels = Labels::Shown;
  std::optional<Ground> ground;       ///< none: shown in a PNG, hidden in a PDF
  std::optional<CellRange> cells;     ///< none: the whole map
  CellFilter filter;                  ///< empty: every cell is shown as usual
  std::optional<PaperRequest> paper;  ///< of a PDF; none: one page as large as the picture
};

/// Sides of a picture in pixels, so that a row of it and the rows that wait for compression stay below 300
/// MB.
constexpr std::int64_t kMaxPictureSidePx = 10'000'000;

/// Writes the picture as a PNG (8 bits a channel, RGB), in bands, with progress. Needs a QGuiApplication (the
/// platform "offscreen" will do), since labels need fonts. False: the request cannot be met, and a line of
/// the error text says why, or `out` took no more bytes, and keeps the reason.
bool RenderPng(const MapContents& map, const PictureRequest& request, std::streambuf& out, Feedback& feedback,
               std::string& errorText);

constexpr int kPdfDotsPerInch = 1200;
/// Sides of a PDF: 200 inches, the longest page that viewers need to show.
constexpr std::int64_t kMaxPdfSidePx = 240'000;

/// The same as a PDF of one page: lines, areas and texts, so it stays sharp; only marked cells are pixels. So
/// are pictures of more than 500,000 hexagons and texts, to keep within memory. A picture pixel is 1/1200
/// inch.
///
/// With paper: as many sheets as the map needs at the size asked for. Several of them overlap by 10 mm and
/// bear marks for cutting, and their names, in the margins.
bool RenderPdf(const MapContents& map, const PictureRequest& request, std::streambuf& out, Feedback& feedback,
               std::string& errorText);

}  // namespace quorvel
