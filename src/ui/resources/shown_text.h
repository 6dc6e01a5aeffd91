#pragma once

#include <string>
#include <string_view>

#include <QString>

namespace quorvel {

/// Text of the resource tables, which are UTF-8.
inline QString FromResource(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace quorvel
