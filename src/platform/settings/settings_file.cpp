#include "platform/settings/settings_file.h"

#include <algorithm>
#include <cerrno>
#include <charconv>

#include <unistd.h>

#include <fmt/format.h>

#include "data/ascii_case.h"
#include "platform/files/atomic_file.h"
#include "platform/files/file_source.h"

namespace quorvel {

namespace {

constexpr std::uint64_t kMaxFileBytes = 1 << 20;

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

std::string Encode(std::string_view text, std::string_view alsoEscaped) {
  std::string line;
  for (const char c : text) {
    const bool escaped = IsControl(c) || alsoEscaped.find(c) != alsoEscaped.npos;
    if (escaped) line += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    if (!escaped) line += c;
  }
  return line;
}

/// A "%" without two hex digits stands for itself.
std::string Decode(std::string_view line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    unsigned char byte = 0;
    const char* digits = line.data() + i + 1;
    const bool escaped = line[i] == '%' && i + 2 < line.size() &&
                         std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    text += escaped ? static_cast<char>(byte) : line[i];
    if (escaped) i += 2;
  }
  return text;
}

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text = end == text.npos ? std::string_view() : text.substr(end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

bool SettingNameLess::operator()(std::string_view a, std::string_view b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char x, char y) { return AsciiLower(x) < AsciiLower(y); });
}

SettingKeys ParseSettings(std::string_view text) {
  SettingKeys keys;
  SettingValues* values = nullptr;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    const std::size_t equals = line.find('=');
    if (line.starts_with('[')) {
      values = line.ends_with(']') ? &keys[Decode(line.substr(1, line.size() - 2))] : nullptr;
    } else if (values && equals != line.npos) {
      (*values)[Decode(line.substr(0, equals))] = Decode(line.substr(equals + 1));
    }
  }
  return keys;
}

std::string FormatSettings(const SettingKeys& keys) {
  std::string text;
  for (const auto& [key, values] : keys) {
    text += fmt::format("{}[{}]\n", text.empty() ? "" : "\n", Encode(key, "%"));
    for (const auto& [name, value] : values)
      text += fmt::format("{}={}\n", Encode(name, "%=["), Encode(value, "%"));
  }
  return text;
}

std::optional<SettingKeys> ReadSettingsFile(const std::string& path) {
  if (access(path.c_str(), F_OK) != 0 && errno == ENOENT) return SettingKeys();
  FileSource file(path, FileSource::Accept::PlainFilesOnly);
  if (file.SizeBytes().value_or(0) > kMaxFileBytes) return SettingKeys();

  std::string text(kMaxFileBytes, '\0');
  text.resize(static_cast<std::size_t>(file.sgetn(text.data(), static_cast<std::streamsize>(text.size()))));
  if (!file.Error().empty()) return std::nullopt;
  return ParseSettings(text);
}

bool WriteSettingsFile(const std::string& path, const SettingKeys& keys) {
  const std::string text = FormatSettings(keys);
  AtomicFile file(path);
  file.Reserve(text.size());
  file.sputn(text.data(), static_cast<std::streamsize>(text.size()));
  std::string errorText;
  return file.Commit(errorText);
}

}  // namespace quorvel
