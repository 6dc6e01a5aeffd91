#pragma once

#include <streambuf>
#include <string>

namespace quorvel {

/// All that an input which cannot seek holds, up to just above the largest file. Of an input that begins with
/// a zero byte only its start: its text ends there, and nothing without a text is read any further. So
/// endless zeros end at once.
std::string ReadWholeInput(std::streambuf& input);

}  // namespace quorvel
