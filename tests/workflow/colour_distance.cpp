#include "tests/workflow/colour_distance.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quorvel {

namespace {

double LinearOfByte(std::uint32_t byte) {
  const double part = byte / 255.0;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

using Matrix = double[3][3];

LinearRgb Product(const Matrix& matrix, const LinearRgb& light) {
  const auto row = [&](const double(&weights)[3]) {
    return weights[0] * light.red + weights[1] * light.green + weights[2] * light.blue;
  };
  return {row(matrix[0]), row(matrix[1]), row(matrix[2])};
}

// Machado, Oliveira and Fernandes 2009, for a full lack of one kind of cones.
constexpr Matrix kProtanopia = {
    {0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}};
constexpr Matrix kDeuteranopia = {
    {0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}};
constexpr Matrix kTritanopia = {
    {1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}};

// sRGB to CIE XYZ, each row divided by its value of white.
constexpr Matrix kToWhiteXyz = {
    {0.433953, 0.376219, 0.189828}, {0.212673, 0.715152, 0.072175}, {0.017756, 0.109466, 0.872778}};

double CubeRootNearZeroStraight(double part) {
  return part > 216.0 / 24389 ? std::cbrt(part) : (24389.0 / 27 * part + 16) / 116;
}

double Radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

double SeventhRootPart(double chroma) {
  const double power = std::pow(chroma, 7);
  return std::sqrt(power / (power + std::pow(25.0, 7)));
}

/// Chroma and hue in degrees, 0 to 360.
struct Polar {
  double chroma, hue;
};

Polar PolarOf(double a, double b) {
  const double hue = a == 0 && b == 0 ? 0 : std::atan2(b, a) * 180 / std::numbers::pi;
  return {std::hypot(a, b), hue < 0 ? hue + 360 : hue};
}

bool IsGrey(const Polar& colour) {
  return colour.chroma == 0;
}

/// From one hue to the other by the shorter way, -180 to 180 degrees.
double HueStep(const Polar& one, const Polar& other) {
  if (IsGrey(one) || IsGrey(other)) return 0;
  const double step = other.hue - one.hue;
  if (step > 180) return step - 360;
  return step < -180 ? step + 360 : step;
}

/// The hue halfway along the shorter way; a grey has none, so that the other's counts.
double MeanHue(const Polar& one, const Polar& other) {
  const double sum = one.hue + other.hue;
  if (IsGrey(one) || IsGrey(other)) return sum;
  if (std::abs(one.hue - other.hue) <= 180) return sum / 2;
  return (sum < 360 ? sum + 360 : sum - 360) / 2;
}

/// How finely the eye tells hues apart varies along the circle.
double HueWeight(double hue) {
  return 1 - 0.17 * std::cos(Radians(hue - 30)) + 0.24 * std::cos(Radians(2 * hue)) +
         0.32 * std::cos(Radians(3 * hue + 6)) - 0.20 * std::cos(Radians(4 * hue - 63));
}

/// Among blues a step of chroma and one of hue lie askew.
double BlueTurn(double chroma, double hue) {
  const double degrees = 30 * std::exp(-std::pow((hue - 275) / 25, 2));
  return -2 * SeventhRootPart(chroma) * std::sin(Radians(2 * degrees));
}

}  // namespace

LinearRgb LinearOf(std::uint32_t colour) {
  return {LinearOfByte(colour >> 16 & 255), LinearOfByte(colour >> 8 & 255), LinearOfByte(colour & 255)};
}

Lab LabOf(const LinearRgb& light) {
  const LinearRgb xyz = Product(kToWhiteXyz, light);
  const double x = CubeRootNearZeroStraight(xyz.red), y = CubeRootNearZeroStraight(xyz.green),
               z = CubeRootNearZeroStraight(xyz.blue);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

LinearRgb SeenWith(Sight sight, const LinearRgb& light) {
  if (sight == Sight::Full) return light;
  const Matrix& matrix = sight == Sight::Protanopia     ? kProtanopia
                         : sight == Sight::Deuteranopia ? kDeuteranopia
                                                        : kTritanopia;
  const LinearRgb seen = Product(matrix, light);
  return {std::clamp(seen.red, 0.0, 1.0), std::clamp(seen.green, 0.0, 1.0), std::clamp(seen.blue, 0.0, 1.0)};
}

double ColourDistance(const Lab& one, const Lab& other) {
  const double plainChroma = (std::hypot(one.a, one.b) + std::hypot(other.a, other.b)) / 2;
  const double stretch = 1.5 - SeventhRootPart(plainChroma) / 2;
  const Polar first = PolarOf(one.a * stretch, one.b), second = PolarOf(other.a * stretch, other.b);

  const double lightness = (one.lightness + other.lightness) / 2;
  const double chroma = (first.chroma + second.chroma) / 2, hue = MeanHue(first, second);
  const double fromMiddle = (lightness - 50) * (lightness - 50);
  const double lightnessStep =
      (other.lightness - one.lightness) / (1 + 0.015 * fromMiddle / std::sqrt(20 + fromMiddle));
  const double chromaStep = (second.chroma - first.chroma) / (1 + 0.045 * chroma);
  const double hueStep = 2 * std::sqrt(first.chroma * second.chroma) *
                         std::sin(Radians(HueStep(first, second) / 2)) /
                         (1 + 0.015 * chroma * HueWeight(hue));
  return std::sqrt(lightnessStep * lightnessStep + chromaStep * chromaStep + hueStep * hueStep +
                   BlueTurn(chroma, hue) * chromaStep * hueStep);
}

double ContrastWithBlack(const LinearRgb& light) {
  constexpr double kGlare = 0.05;
  return (Product(kToWhiteXyz, light).green + kGlare) / kGlare;
}

}  // namespace quorvel
