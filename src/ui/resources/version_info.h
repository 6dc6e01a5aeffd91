#pragma once

namespace quorvel {

/// The version block of the program; the number comes from the build.
extern const char* const kFileVersion;
inline constexpr char kProductName[] = "Quorvel";

}  // namespace quorvel
