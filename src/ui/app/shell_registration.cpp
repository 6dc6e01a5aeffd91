#include "ui/app/shell_registration.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "platform/files/atomic_file.h"
#include "ui/drawings/command_icons.h"

/// Resources of a static library must be named outside any namespace.
static void InitShellResource() {
  Q_INIT_RESOURCE(shell);
}

namespace quorvel {
namespace {

using Templates = std::vector<std::unique_ptr<CMultiDocTemplateWithID>>;

constexpr int kIconSidePx = 128;

/// True when the file was written: it was missing or had other content.
bool WriteIfChanged(const QString& path, const QByteArray& content) {
  QFile old(path);
  if (old.open(QIODevice::ReadOnly) && old.read(content.size() + 1) == content) return false;
  QDir().mkpath(QFileInfo(path).path());
  AtomicFile file(QFile::encodeName(path).toStdString());
  file.sputn(content.constData(), content.size());
  std::string errorText;
  return file.Commit(errorText);
}

QByteArray IconFile(const QIcon& icon) {
  QByteArray content;
  QBuffer buffer(&content);
  buffer.open(QIODevice::WriteOnly);
  icon.pixmap(QSize(kIconSidePx, kIconSidePx), 1.0).save(&buffer, "PNG");
  return content;
}

/// A path as an argument in a desktop entry's Exec line.
QByteArray QuotedForExec(const QString& path) {
  QByteArray quoted;
  for (const char c : QFile::encodeName(path)) {
    if (c == '"' || c == '`' || c == '$' || c == '\\') quoted += "\\\\";
    if (c == '%') quoted += '%';
    quoted += c;
  }
  return '"' + quoted + '"';
}

QByteArray Resource(const QString& name) {
  InitShellResource();
  QFile file(QStringLiteral(":/shell/") + name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The entry of an installed copy, but for the program: this one may not stand where commands are looked for.
QByteArray DesktopEntry() {
  const QByteArray program = QuotedForExec(QCoreApplication::applicationFilePath());
  return Resource(QStringLiteral("quorvel.desktop")).replace("=quorvel ", '=' + program + ' ');
}

void WriteIcons(const Templates& templates, const QString& data) {
  const QString icons = data + QStringLiteral("/icons/hicolor/%1x%1/").arg(kIconSidePx);
  WriteIfChanged(icons + QStringLiteral("apps/quorvel.png"), IconFile(ApplicationIcon()));
  for (const auto& docTemplate : templates) {
    const QString name = QString::fromStdString(MimeTypeOf(*docTemplate)).replace(u'/', u'-');
    WriteIfChanged(icons + QStringLiteral("mimetypes/") + name + QStringLiteral(".png"),
                   IconFile(DocumentIcon(docTemplate->GetResourceID())));
  }
}

/// The desktop reads these files through an index of its own; where the tool that renews it is missing, so is
/// the index.
void RunIndexer(const QString& program, const QString& folder) {
  const QString path = QStandardPaths::findExecutable(program);
  if (!path.isEmpty()) QProcess::startDetached(path, {folder});
}

}  // namespace

std::string MimeTypeOf(const CMultiDocTemplateWithID& docTemplate) {
  return "application/x-" +
         QByteArray::fromStdString(docTemplate.Strings().regFileTypeId).toLower().toStdString();
}

void RegisterShellFileTypes(const Templates& templates) {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  if (data.isEmpty()) return;
  const bool isTypeNew = WriteIfChanged(data + QStringLiteral("/mime/packages/quorvel.xml"),
                                        Resource(QStringLiteral("quorvel.xml")));
  const bool isEntryNew =
      WriteIfChanged(data + QStringLiteral("/applications/quorvel.desktop"), DesktopEntry());
  if (!isTypeNew && !isEntryNew) return;
  WriteIcons(templates, data);
  RunIndexer(QStringLiteral("update-mime-database"), data + QStringLiteral("/mime"));
  RunIndexer(QStringLiteral("update-desktop-database"), data + QStringLiteral("/applications"));
}

}  // namespace quorvel
