#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvel {

/// Form of a map file. The numbers are those that documents and journals keep.
enum class FileForm : std::int32_t { Text = 0, Binary = 1 };

/// Names of the forms as a map file's leaf "Version/Data/type" and the dialog write them, by the form's
/// number.
inline constexpr std::array<std::string_view, 2> kDataTypeNames = {"text", "binary"};

/// Number of the form with exactly this name (case matters); that of the text form for any other.
int DataTypeFromName(std::string_view name);

/// Number of a form.
constexpr int DataTypeOf(FileForm form) {
  return static_cast<int>(form);
}

/// Form of a number. One that is no form's, as -1 for no choice, stands for the text form.
constexpr FileForm FileFormOf(int dataType) {
  return dataType == DataTypeOf(FileForm::Binary) ? FileForm::Binary : FileForm::Text;
}

constexpr std::string_view NameOf(FileForm form) {
  return kDataTypeNames[static_cast<std::size_t>(form)];
}

}  // namespace quorvel
