#pragma once

#include <map>
#include <string>

#include <CLI/CLI.hpp>

#include "map/data_type.h"

namespace quorvel {

/// The option --form with the names of the file forms as its values. `form` must outlive `app`.
inline CLI::Option* AddFormOption(CLI::App& app, int& form) {
  std::map<std::string, int> forms;
  for (std::size_t number = 0; number < kDataTypeNames.size(); ++number)
    forms.emplace(kDataTypeNames[number], static_cast<int>(number));
  return app.add_option("--form", form, "File form of OUT")
      ->option_text("text|binary")
      ->transform(CLI::Transformer(forms));
}

}  // namespace quorvel
