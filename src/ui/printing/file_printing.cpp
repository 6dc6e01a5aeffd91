#include "ui/printing/file_printing.h"

#include <algorithm>
#include <memory>

#include <QFile>
#include <QFileInfo>
#include <QPrinterInfo>
#include <fmt/format.h>

#include "data/control_escapes.h"
#include "map/file/map_reader.h"
#include "map/types/map_limits.h"
#include "platform/files/file_source.h"
#include "platform/files/outcome.h"
#include "render/colour_members.h"
#include "ui/printing/print_run.h"
#include "ui/printing/whole_pdf.h"

namespace quorvel {
namespace {

constexpr int kTroubleCode = 2;

/// As the batch tool's.
int ExitCodeOf(Outcome outcome) {
  if (outcome == Outcome::Done) return 0;
  return outcome == Outcome::Refused ? 1 : kTroubleCode;
}

/// One message for each line of `text`.
void Complain(const std::string& name, std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    fmt::print(stderr, "quorvel: {}: {}\n", WithEscapes(name), WithEscapes(line));
  }
}

/// How a view of the map would show it at first.
MapLook LookOf(const MapContents& map) {
  std::string first;  // index property, for outline and colour
  MapLook look;
  look.outlineMember = look.fillMember = SelectIndexMember(map.m_pCellClass, first, 0);
  look.ground = Ground::Hidden;
  return look;
}

bool IsPdf(const std::string& printerName) {
  return QFile::decodeName(printerName.c_str()).endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
}

std::unique_ptr<QPrinter> PdfPrinter(const std::string& path) {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer->setCreator(QStringLiteral("Quorvel"));
  printer->setOutputFormat(QPrinter::PdfFormat);
  printer->setOutputFileName(QFile::decodeName(path.c_str()));
  return printer;
}

/// Null: there is no such printer.
std::unique_ptr<QPrinter> SystemPrinter(const std::string& name) {
  const QPrinterInfo info =
      name.empty() ? QPrinterInfo::defaultPrinter() : QPrinterInfo::printerInfo(QString::fromStdString(name));
  return info.isNull() ? nullptr : std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

/// The maps of one print job, read and printed one after the other.
class FilePrinting {
 public:
  explicit FilePrinting(const std::vector<std::string>& files) : files_(files) {}

  int Run(QPrinter& printer, const std::string& printerName);

 private:
  bool PrintAll(QPrinter& printer);
  void PrintFile(PrintRun& run, QPrinter& printer, const std::string& path);
  MapContents Read(const std::string& path);
  void Fail(Outcome outcome, const std::string& name, std::string_view why);

  const std::vector<std::string>& files_;
  int code_ = 0;
};

void FilePrinting::Fail(Outcome outcome, const std::string& name, std::string_view why) {
  Complain(name, why);
  code_ = std::max(code_, ExitCodeOf(outcome));
}

int FilePrinting::Run(QPrinter& printer, const std::string& printerName) {
  const auto paint = [this](QPrinter& paper) { return PrintAll(paper); };
  printer.setDocName(QFileInfo(QFile::decodeName(files_.front().c_str())).fileName());
  std::string reason;
  const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
  const bool isPrinted = toFile ? PrintWholePdf(printer, paint, reason) : paint(printer);
  if (!isPrinted && !reason.empty()) Fail(Outcome::FileTrouble, printerName, reason);
  return code_;
}

/// False: not a page of them.
bool FilePrinting::PrintAll(QPrinter& printer) {
  PrintRun run(printer);
  for (const std::string& path : files_) PrintFile(run, printer, path);
  return run.Finish();
}

void FilePrinting::PrintFile(PrintRun& run, QPrinter& printer, const std::string& path) {
  const MapContents map = Read(path);
  if (!map.m_pGrid) return;
  const PrintedMap printed = {&map, LookOf(map)};
  const PageRange pages = {0, CountPages(LayoutOf(printer, printed)) - 1};
  if (!run.Print(printed, pages, [](int, int) { return true; }))
    Fail(Outcome::FileTrouble, path, "The printer does not take it");
}

/// Without a grid: not to be printed, and said why.
MapContents FilePrinting::Read(const std::string& path) {
  FileSource source(path, FileSource::Accept::AnyInput, kMaxTextFileBytes);
  NullFeedback feedback;
  std::string errorText;
  MapContents map;
  Outcome outcome = Outcome::Done;
  if (source.IsOpen()) outcome = LoadMapFile(source, map, feedback, errorText);
  if (!source.Error().empty()) {
    Fail(source.GetOutcome(), path, source.Error());
    return {};
  }
  if (!errorText.empty()) Fail(outcome == Outcome::Done ? Outcome::Refused : outcome, path, errorText);
  return map;
}

}  // namespace

int PrintFiles(const std::vector<std::string>& files, const std::string& printerName) {
  const auto printer = IsPdf(printerName) ? PdfPrinter(printerName) : SystemPrinter(printerName);
  if (printer) return FilePrinting(files).Run(*printer, printerName);
  Complain(printerName.empty() ? "the default printer" : printerName, "There is no such printer");
  return kTroubleCode;
}

}  // namespace quorvel
