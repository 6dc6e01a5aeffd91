#pragma once

#include <cstdint>

namespace quorvel {

/// Amounts of light of the three primaries of sRGB, 0 to 1 each.
struct LinearRgb {
  double red, green, blue;
};

/// A colour of CIELAB under daylight (D65): lightness 0 to 100, `a` from green to red, `b` from blue to
/// yellow.
struct Lab {
  double lightness, a, b;
};

/// Whose eye looks: one with all three kinds of cones, or one that lacks those for long, middle or short
/// waves.
enum class Sight { Full, Protanopia, Deuteranopia, Tritanopia };

/// Of a colour as definitions give it, 0xRRGGBB.
LinearRgb LinearOf(std::uint32_t colour);
Lab LabOf(const LinearRgb& light);

/// What an eye of full sight must be shown to see what the other one sees of this light.
LinearRgb SeenWith(Sight sight, const LinearRgb& light);

/// How different two colours look (CIEDE2000): 1 can just be told apart side by side, black from white is
/// 100.
double ColourDistance(const Lab& one, const Lab& other);

/// How well black letters stand out from this light (WCAG 2): 1 for black itself, 21 for white.
double ContrastWithBlack(const LinearRgb& light);

}  // namespace quorvel
