#pragma once

#include <cstdint>

namespace quorvel {

/// Whose eye looks: one with all three kinds of cones, or one that lacks those for long, middle or short
/// waves.
enum class Sight { Full, Protanopia, Deuteranopia, Tritanopia };

/// How different two colours 0xRRGGBB look to this eye, as their distance in Oklab: from 0.02 on they can be
/// told apart side by side, black from white is 1.
double ColourDistance(std::uint32_t one, std::uint32_t other, Sight sight = Sight::Full);

/// How well black letters stand out from a colour (WCAG 2): 1 for black itself, 21 for white.
double ContrastWithBlack(std::uint32_t colour);

}  // namespace quorvel
