#pragma once

#include <string>
#include <vector>

namespace quorvel {

/// Prints map files without a window or a question, in their order: into one PDF file when the printer's name
/// ends with ".pdf", on the default printer when it is empty. File names are bytes.
///
/// What can be printed is. The answer is the program's exit code: 0 all went well; 1 a map is refused or has
/// an error text; 2 a file, the printer or a page of it is missing. Standard error says what and why.
int PrintFiles(const std::vector<std::string>& files, const std::string& printerName);

}  // namespace quorvel
