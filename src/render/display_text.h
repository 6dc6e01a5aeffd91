#pragma once

#include <string_view>

#include <QString>

namespace quorvel {

/// What a text's bytes show as: UTF-8 where they are valid UTF-8, any other text as Windows-1252. Control
/// bytes, line feeds aside, show as spaces.
QString DisplayText(std::string_view bytes);

}  // namespace quorvel
