#include "tests/workflow/colour_distance.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvel {

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

// In the order of Sight. Machado, Oliveira and Fernandes 2009, for a full lack of one kind of cones.
constexpr Matrix kSeen[] = {
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}};

// Ottosson 2020: light to the answers of the cones, and their cube roots to lightness and two opponents.
constexpr Matrix kCones = {{{0.4122214708, 0.5363325363, 0.0514459929},
                            {0.2119034982, 0.6806995451, 0.1073969566},
                            {0.0883024619, 0.2817188376, 0.6299787005}}};
constexpr Matrix kOpponents = {{{0.2104542553, 0.7936177850, -0.0040720468},
                                {1.9779984951, -2.4285922050, 0.4505937099},
                                {0.0259040371, 0.7827717662, -0.8086757660}}};

double Product(const Triple& row, const Triple& column) {
  return row[0] * column[0] + row[1] * column[1] + row[2] * column[2];
}

Triple Product(const Matrix& matrix, const Triple& column) {
  return {Product(matrix[0], column), Product(matrix[1], column), Product(matrix[2], column)};
}

double LinearOfByte(std::uint32_t byte) {
  const double part = byte / 255.0;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// Amounts of light of the three primaries of sRGB, 0 to 1 each.
Triple LightOf(std::uint32_t colour) {
  return {LinearOfByte(colour >> 16 & 255), LinearOfByte(colour >> 8 & 255), LinearOfByte(colour & 255)};
}

Triple OklabOf(std::uint32_t colour, Sight sight) {
  Triple seen = Product(kSeen[static_cast<int>(sight)], LightOf(colour));
  for (double& part : seen) part = std::clamp(part, 0.0, 1.0);
  Triple cones = Product(kCones, seen);
  for (double& part : cones) part = std::cbrt(part);
  return Product(kOpponents, cones);
}

}  // namespace

double ColourDistance(std::uint32_t one, std::uint32_t other, Sight sight) {
  const Triple from = OklabOf(one, sight), to = OklabOf(other, sight);
  return std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
}

double ContrastWithBlack(std::uint32_t colour) {
  constexpr Triple kLuminance = {0.2126, 0.7152, 0.0722};
  constexpr double kGlare = 0.05;
  return (Product(kLuminance, LightOf(colour)) + kGlare) / kGlare;
}

}  // namespace quorvel
