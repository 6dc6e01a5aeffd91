#pragma once

#include <optional>

#include <CLI/CLI.hpp>

#include "render/picture.h"

namespace quorvel {

/// The options that lay a picture on sheets of paper.
class PaperOptions {
 public:
  /// `app` keeps references into this object. `fit` is the option that excludes these.
  void Declare(CLI::App& app, CLI::Option* fit);

  /// None: none of the options was given.
  const std::optional<PaperRequest>& Request() const { return request_; }

 private:
  PaperRequest& Asked() { return request_ ? *request_ : request_.emplace(); }

  std::optional<PaperRequest> request_;
};

}  // namespace quorvel
