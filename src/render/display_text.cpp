#include "render/display_text.h"

#include <QStringDecoder>

namespace quorvel {
namespace {

/// Windows-1252 from 0x80 to 0x9f; outside that range it is Latin-1. The five codes without a character keep
/// theirs.
constexpr char16_t kWindows1252[32] = {
    u'\u20ac', u'\x81',   u'\u201a', u'\u0192', u'\u201e', u'\u2026', u'\u2020', u'\u2021',
    u'\u02c6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', u'\x8d',   u'\u017d', u'\x8f',
    u'\x90',   u'\u2018', u'\u2019', u'\u201c', u'\u201d', u'\u2022', u'\u2013', u'\u2014',
    u'\u02dc', u'\u2122', u'\u0161', u'\u203a', u'\u0153', u'\x9d',   u'\u017e', u'\u0178'};

QString FromWindows1252(std::string_view bytes) {
  QString text = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
  for (QChar& character : text) {
    if (character >= u'\x80' && character < u'\xa0') character = kWindows1252[character.unicode() - 0x80];
  }
  return text;
}

}  // namespace

QString DisplayText(std::string_view bytes) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString text = utf8(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  if (utf8.hasError()) text = FromWindows1252(bytes);
  for (QChar& character : text) {
    if (character.category() == QChar::Other_Control && character != u'\n') character = u' ';
  }
  return text;
}

}  // namespace quorvel
