#pragma once

#include <array>
#include <string_view>

namespace quorvel {

/// Forms of a map file, in the order in which they are offered and numbered.
constexpr int kTextForm = 0;
constexpr int kBinaryForm = 1;

/// Names of the forms as a map file's leaf "Version/Data/type" and the dialog write them; the index is the
/// form.
constexpr std::array<std::string_view, 2> kDataTypeNames = {"text", "binary"};

/// Form with exactly this name (case matters); the text form for any other.
int DataTypeFromName(std::string_view name);

}  // namespace quorvel
