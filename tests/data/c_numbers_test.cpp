#include "data/c_numbers.h"

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <locale>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

std::string Printed(double number) {
  char text[512];
  std::snprintf(text, sizeof text, "%f", number);
  return text;
}

/// Tries to give the process a locale whose decimal point is a comma, as a GUI library may.
class CommaLocale {
 public:
  CommaLocale() {
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "cs_CZ.UTF-8"}) {
      if (std::setlocale(LC_ALL, name)) break;
    }
    std::locale::global(std::locale(std::locale(), new CommaPunctuation));
  }
  ~CommaLocale() {
    std::locale::global(std::locale::classic());
    std::setlocale(LC_ALL, "C");
  }

 private:
  struct CommaPunctuation : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
};

/// The cases "TEXT>NUMBER" of a line, parted by blanks.
std::vector<std::pair<std::string, std::int64_t>> CasesOf(const std::string& line) {
  std::vector<std::pair<std::string, std::int64_t>> cases;
  std::istringstream words(line);
  for (std::string word; words >> word;) {
    const std::size_t sign = word.find('>');
    cases.emplace_back(word.substr(0, sign), std::stoll(word.substr(sign + 1)));
  }
  return cases;
}

TEST(CNumbers, IntsAreClampedToThirtyTwoBits) {
  for (const auto& [text, number] : CasesOf(
           ">0 42>42 +5>5 2.9>2 word>0 0x10>0 --1>0 +-1>0 007>7 -7x>-7 2147483647>2147483647 "
           "2147483648>2147483647 99999999999>2147483647 -2147483648>-2147483648 -2147483649>-2147483648 "
           "-99999999999999999999999999>-2147483648 18446744073709551617>2147483647"))  // not 2^64 + 1 = 1
    EXPECT_EQ(ToInt(text), number) << text;
  EXPECT_EQ(ToInt(" \t\n\f\r\v-7x"), -7);
  EXPECT_EQ(ToInt("- 1"), 0);
  EXPECT_EQ(ToInt(std::string_view("1\0002", 3)), 1) << "a NUL ends the text";
}

TEST(CNumbers, UnsignedsFollowTheirBaseAndSaturate) {
  for (const auto& [text, number] :
       CasesOf(">0 255>255 0xFF00ff>16711935 0X1g>1 010>8 08>0 0x>0 0xg>0 0-1>0 0x-1>0 -1>4294967295 "
               "-0x10>4294967280 4294967295>4294967295 4294967296>4294967295 -4294967295>1 "
               "-4294967296>4294967295 99999999999999999999999>4294967295"))
    EXPECT_EQ(ToUnsigned(text), number) << text;
  EXPECT_EQ(ToUnsigned(" +7"), 7U);
}

TEST(CNumbers, DoublesAreThoseOfTheCLibrary) {
  std::vector<std::string> texts = {"",
                                    "- 2",
                                    "  7",
                                    "\v\f\r3",
                                    std::string(300, '9'),
                                    std::string(400, '9'),
                                    "0." + std::string(400, '0') + "1"};
  std::istringstream words(
      "1 -1.5 .5 5. . -.e1 1e 1e+ 1e3 1E-3x +2.5 +-2 --2 inf -INF infinityx nan -nan nan(12) 0x1.8p3 "
      "-0x.8P-2 0x 0xg 0x1p 1e999 -1e999 1e-999 4e-320 1,5 0 -0 1_0 infx i n 0.1e1e1");
  for (std::string word; words >> word;) texts.push_back(word);
  std::mt19937 random(7);
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    for (auto length = random() % 12; length > 0; --length)
      text += "0123456789.eE+-xXpPinfaN "[random() % 25];
    texts.push_back(text);
  }
  for (const std::string& text : texts) {
    const double expected = std::strtod(text.c_str(), nullptr);
    const double number = ToDouble(text);
    EXPECT_TRUE(number == expected || (std::isnan(number) && std::isnan(expected))) << text;
    EXPECT_EQ(std::signbit(number), std::signbit(expected)) << text;
  }
  EXPECT_EQ(ToFloat("1e39"), kInfinity);
  EXPECT_EQ(ToFloat("16777217"), 16777216.0F);
}

TEST(CNumbers, FloatsArePrintedWithSixDecimals) {
  for (const float number :
       {0.0F, -0.0F, 1.0F, 0.5F, -1.0e-7F, 123456.789F, 0.0078125F, 0.0234375F, 4.76837158e-7F,
        5.0e-7F,  // ties go to the even digit
        0x1p43F, 0x1.fffffep42F, std::numeric_limits<float>::max(), std::numeric_limits<float>::lowest(),
        std::numeric_limits<float>::denorm_min(), kInfinity, -kInfinity, std::nanf(""), -std::nanf("")}) {
    EXPECT_EQ(FormatFloat(number), Printed(number));
  }
  std::mt19937 random(11);
  for (int i = 0; i < 20000; ++i) {
    const auto bits = static_cast<std::uint32_t>(random());
    float number;
    std::memcpy(&number, &bits, sizeof number);
    ASSERT_EQ(FormatFloat(number), Printed(number)) << bits;
  }
  EXPECT_EQ(FormatInt(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

TEST(CNumbers, TheUsersLocaleDoesNotMatter) {
  const CommaLocale comma;
  EXPECT_EQ(FormatFloat(1234.5F), "1234.500000");
  EXPECT_EQ(FormatInt(1234567), "1234567");
  EXPECT_EQ(ToDouble("1.5"), 1.5);
  EXPECT_EQ(ToDouble("1,5"), 1.0);
  EXPECT_EQ(ToDouble("0x1.8p0"), 1.5) << "the rare forms take another way";
}

}  // namespace
}  // namespace quorvel
