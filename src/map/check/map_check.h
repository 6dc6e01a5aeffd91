#pragma once

#include <cstdint>
#include <functional>
#include <streambuf>
#include <string>

#include "platform/documents/feedback.h"
#include "platform/files/outcome.h"

namespace quorvel {

/// Something in a file that its author will not have meant.
struct Problem {
  std::uint64_t line = 0;  ///< of the file's text, from 1; 0: no line can be named
  std::string text;        ///< may hold any bytes of the file
};
using ProblemSink = std::function<void(const Problem&)>;

/// Tells every problem of a map of either form or of a definitions file: the lines of the error text that
/// loading it gives, what loading passes over in silence, and what no editor would have written. A file that
/// the editor saved has none as long as its definitions and values are sound.
///
/// `file` must be able to seek; it is read several times. NoMemory: not all problems were told. Else Done.
Outcome CheckFile(std::streambuf& file, Feedback& feedback, const ProblemSink& report);

}  // namespace quorvel
