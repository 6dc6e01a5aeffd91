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

/// What an installed copy, or an earlier start of one, has for the desktop, below a data folder.
constexpr QLatin1String kTypes("/mime/packages/quorvel.xml");
constexpr QLatin1String kEntry("/applications/quorvel.desktop");

/// A build folder has programs, but nothing for the desktop.
bool IsInstalledCopy() {
  return QFile::exists(QCoreApplication::applicationDirPath() + QStringLiteral("/../share") + kEntry);
}

/// By the user's data folder or one of the system's.
bool IsKnownToDesktop(QLatin1String file) {
  return !QStandardPaths::locate(QStandardPaths::GenericDataLocation, QString(file.mid(1))).isEmpty();
}

void WriteMissing(const QString& path, const QByteArray& content) {
  if (QFile::exists(path)) return;
  QDir().mkpath(QFileInfo(path).path());
  AtomicFile file(QFile::encodeName(path).toStdString());
  file.sputn(content.constData(), content.size());
  std::string errorText;
  file.Commit(errorText);
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
  WriteMissing(icons + QStringLiteral("apps/quorvel.png"), IconFile(ApplicationIcon()));
  for (const auto& docTemplate : templates) {
    const QString name = QString::fromStdString(MimeTypeOf(*docTemplate)).replace(u'/', u'-');
    WriteMissing(icons + QStringLiteral("mimetypes/") + name + QStringLiteral(".png"),
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
  if (data.isEmpty() || !IsInstalledCopy()) return;
  const bool isTypeMissing = !IsKnownToDesktop(kTypes);
  const bool isEntryMissing = !IsKnownToDesktop(kEntry);
  if (!isTypeMissing && !isEntryMissing) return;
  WriteIcons(templates, data);  // first: once types and entry are there, nothing more is written
  if (isTypeMissing) WriteMissing(data + kTypes, Resource(QStringLiteral("quorvel.xml")));
  if (isEntryMissing) WriteMissing(data + kEntry, DesktopEntry());
  RunIndexer(QStringLiteral("update-mime-database"), data + QStringLiteral("/mime"));
  RunIndexer(QStringLiteral("update-desktop-database"), data + QStringLiteral("/applications"));
}

}  // namespace quorvel
