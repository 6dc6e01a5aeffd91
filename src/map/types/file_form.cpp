#include "map/types/file_form.h"

#include <algorithm>

namespace quorvel {

int DataTypeFromName(std::string_view name) {
  const auto* found = std::find(kDataTypeNames.begin(), kDataTypeNames.end(), name);
  return found == kDataTypeNames.end() ? DataTypeOf(FileForm::Text)
                                       : static_cast<int>(found - kDataTypeNames.begin());
}

}  // namespace quorvel
