#pragma once

#include <functional>
#include <string>

#include <QPrinter>

namespace quorvel {

/// Prints into the PDF file that the printer is set to, so that the file appears whole or not at all. (The
/// library writes into its file as it goes, and does not say when the disk is full.) `paint` says whether it
/// printed. False: the file is as it was; `reason` says why when it was not `paint`.
bool PrintWholePdf(QPrinter& printer, const std::function<bool(QPrinter&)>& paint, std::string& reason);

}  // namespace quorvel
