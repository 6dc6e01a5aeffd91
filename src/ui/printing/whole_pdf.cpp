#include "ui/printing/whole_pdf.h"

#include <algorithm>

#include <QDir>
#include <QFile>
#include <QTemporaryFile>

#include "platform/files/atomic_file.h"
#include "platform/files/file_calls.h"

namespace quorvel {
namespace {

constexpr char kEndOfPdf[] = "%%EOF";
constexpr qint64 kTailBytes = 16;

/// The library's last bytes are there: it could write all that it wanted.
bool IsWhole(QFile& pdf) {
  return pdf.seek(std::max<qint64>(0, pdf.size() - kTailBytes)) && pdf.readAll().contains(kEndOfPdf) &&
         pdf.seek(0);
}

bool CopyTo(const QString& path, QFile& pdf, std::string& reason) {
  AtomicFile target(QFile::encodeName(path).toStdString());
  target.Reserve(static_cast<std::uint64_t>(pdf.size()));
  while (target.IsGood() && !pdf.atEnd()) {
    const QByteArray piece = pdf.read(qint64{kPieceBytes});
    target.sputn(piece.constData(), piece.size());
  }
  std::string errorText;
  if (target.Commit(errorText)) return true;
  errorText.pop_back();  // its line feed
  reason = errorText;
  return false;
}

}  // namespace

bool PrintWholePdf(QPrinter& printer, const std::function<bool(QPrinter&)>& paint, std::string& reason) {
  const QString path = printer.outputFileName();
  QTemporaryFile pdf(QDir::temp().filePath(QStringLiteral("quorvel-XXXXXX.pdf")));
  if (!pdf.open()) {
    reason = pdf.errorString().toStdString();
    return false;
  }
  printer.setOutputFileName(pdf.fileName());
  const bool isPainted = paint(printer);
  printer.setOutputFileName(path);
  if (!isPainted) return false;
  if (IsWhole(pdf)) return CopyTo(path, pdf, reason);
  reason = "No space left for temporary files";
  return false;
}

}  // namespace quorvel
