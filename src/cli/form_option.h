#pragma once

#include <algorithm>
#include <string>

#include <CLI/CLI.hpp>

#include "map/types/file_form.h"

namespace quorvel {

/// The option --form with the names of the file forms as its values. `form` must outlive `app`.
inline CLI::Option* AddFormOption(CLI::App& app, FileForm& form) {
  const auto parse = [&form](const std::string& name) {
    const auto found = std::ranges::find(kDataTypeNames, name);
    if (found == kDataTypeNames.end())
      throw CLI::ValidationError("--form", name + " is no file form; there are text and binary");
    form = FileFormOf(static_cast<int>(found - kDataTypeNames.begin()));
  };
  return app.add_option_function<std::string>("--form", parse, "File form of OUT")
      ->option_text("text|binary");
}

}  // namespace quorvel
