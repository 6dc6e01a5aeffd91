// How a document's new map is made: definitions, wizard, fill.

#include <optional>
#include <string>
#include <utility>

#include <fmt/format.h>

#include "map/document/locate_definitions.h"
#include "map/document/vastrel_doc.h"
#include "map/fill/kept_fills.h"
#include "map/fill/make_map.h"
#include "map/types/definitions.h"
#include "map/types/map_limits.h"
#include "map/types/map_size_limits.h"
#include "platform/files/file_source.h"

namespace quorvel {
namespace {

constexpr std::size_t kMaxCauseBytes = 254;

std::string FileErrorText(const std::string& path, const std::string& cause) {
  return fmt::format("'{}'\nFile error.\nCause: {}", path, cause.substr(0, kMaxCauseBytes));
}

/// Shows a document's map while it is filled. From its grid on the document is modified.
class ShowsNewMap : public NewMapListener {
 public:
  explicit ShowsNewMap(CVastrelDoc& document) : document_(document) {}

  void OnGridMade() override {
    document_.SetModifiedFlag();
    document_.UpdateAllViews(nullptr);
  }
  void OnCellChanged(const CellRecord& record) override { document_.OnCellChanged(record); }

 private:
  CVastrelDoc& document_;
};

}  // namespace

bool CVastrelDoc::LoadDefaultDefinitions(DataBranch& file, std::string& errorText) {
  std::string path;
  std::string trouble;
  bool loaded = false;
  if (LocateDefaultDefinitions(path, services_) == DialogResult::Cancel) {
    trouble = "Default definitions file unavailable.\n";
  } else {
    FileSource source(path, FileSource::Accept::PlainFilesOnly, kMaxTextFileBytes);
    if (source.IsOpen()) loaded = LoadDefinitions(source, file, *this, services_.feedback, errorText);
    if (!source.Error().empty()) trouble = FileErrorText(path, source.Error());
  }
  if (!trouble.empty()) errorText += "Definition file error:\n" + trouble;
  return loaded && trouble.empty();
}

bool CVastrelDoc::CreateNewMap(std::string& errorText) {
  DataBranch file({});
  LoadDefaultDefinitions(file, errorText);
  if (!m_pMapClass) return errorText.empty();

  MapSizeLimits limits;
  GetMapSizeLimits(m_pMapClass, limits);
  std::optional<NewMapChoice> choice = services_.mapDialogs.ChooseNewMap(limits, m_pCellClass);
  if (choice) {
    FillNewMap(std::move(*choice), errorText);
  } else {
    MakeEmptyMap(limits.defaultWidth.value_or(0), limits.defaultHeight.value_or(0), errorText);
  }
  return errorText.empty();
}

void CVastrelDoc::MakeEmptyMap(int width, int height, std::string& errorText) {
  if (quorvel::MakeEmptyMap(*this, {width, height}, errorText)) UpdateAllViews(nullptr);
}

void CVastrelDoc::FillNewMap(NewMapChoice&& choice, std::string& errorText) {
  const FillSettings settings{.width = ClampNewMapSide(choice.width),
                              .height = ClampNewMapSide(choice.height),
                              .seed = static_cast<std::uint32_t>(services_.clock.Seconds()),
                              .global = std::move(choice.global),
                              .region = std::move(choice.region)};
  const WaitCursor wait(services_.feedback);
  ShowsNewMap shows(*this);
  if (!MakeMap(*this, settings, services_.feedback, shows, errorText)) return;
  PumpOnly pump(services_.feedback);
  KeepMap(pump);

  std::string ignored;  // the map is there; that it cannot be made again is no reason to close it
  if (!services_.fillsFolder.empty())
    KeepFillSettings(services_.fillsFolder, services_.clock.Seconds(), settings, m_pClasses.get(), ignored);
}

}  // namespace quorvel
