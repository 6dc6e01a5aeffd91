#pragma once

namespace quorvel {

/// The version block of the program.
inline constexpr char kFileVersion[] = "0, 0, 0, 3";
inline constexpr char kFileDescription[] = "Generic Map Editor";
inline constexpr char kProductName[] = "Quorvel";

}  // namespace quorvel
