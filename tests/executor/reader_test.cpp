// The dialect: every form of a statement once, what is refused, and bytes that are no program.
#include "executor/program/reader.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>

#include "designs.h"
#include "executor/program/number.h"
#include "executor/program/program.h"
#include "executor/proof/report.h"

namespace torvane::executor {
namespace {

TEST(Number, TakesWhatMasksWrite) {
  struct Case {
    const char* text;
    char sign;
    double value;
  };
  for (const Case& c : {Case{".50", '.', 0.5},
                        {"12.", '.', 12},
                        {".", '.', 0},
                        {"-.25", '.', -0.25},
                        {"-", '.', 0},
                        {"1E-05", '.', 1e-5},
                        {"0,13", ',', 0.13},
                        {",", ',', 0},
                        {"0.50", ',', 0.5},
                        {"360", ',', 360},
                        {"-10000000000000", '.', -1e13},
                        {"0.000000001", '.', 1e-9},
                        {"0.0000000009", '.', 0}}) {
    const auto value = ReadNumber(c.text, c.sign);
    ASSERT_TRUE(value) << c.text;
    EXPECT_DOUBLE_EQ(*value, c.value) << c.text;
  }
  for (const char* text :
       {"", "0,13", "1.2.3", "1-2", "E5", "1E", "nan", "inf", "0x10", "1e300", " 1", "1 ", "10000000000001"})
    EXPECT_FALSE(ReadNumber(text, '.')) << text;
  EXPECT_EQ(Fixed(-0.001, 2), "0.00");
}

// As its digits say, to the last bit: of however many digits, wherever the sign stands.
TEST(Reader, NumbersAreTheNearestOnes) {
  Dice dice(3);
  for (int i = 0; i < 20'000; ++i) {
    std::string text = dice.To(2) == 0 ? "-" : "";
    const int digits = 1 + dice.To(18), point = dice.To(digits + 1);
    for (int digit = 0; digit < digits; ++digit) {
      if (digit == point) text += '.';
      text += static_cast<char>('0' + dice.To(10));
    }
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    if (std::abs(value) > 1e13 || std::abs(value) < 1e-9) continue;
    const auto read = ReadNumber(text, '.');
    ASSERT_TRUE(read) << text;
    EXPECT_EQ(*read, value) << text;
  }
}

TEST(Reader, KnowsEveryForm) {
  const char* forms =
      "[G-CODE SPOT VERIFY][X,Y,Z SPOT VERIFICATION]\nC C0 [DECIMAL COMMA FORMAT = NO]\nG20 "
      "[Units]\nG21\nG90\n"
      "X V420.000 T2 Z1.875 [VERSION]\nX V420.000 T4 Z1.875 Y4.4375\nM711 H0 M43 S0\nM17\nM18\n"
      "G1 F6 Z28.00 [Move to Z=28.00]\nG1 Z4.00\nG1 F3.13 Z40.00 R7.83 B50.00\nG1 Z40.00 R7.83 B-50.00\n"
      "G1 F1 Z4.00 Y3.50 R20 B0\nG1 E0.50 Y2.5\nG1 F1.000 Z6.11 Y3.5 E1.000 B71.88 R10 S0\n"
      "G1 F4.00 Z28.00 S6.25 C205.19 A224.99  [MOVE LEFT END]\nG1 S6 L602 C10 A5\nG1 F2 Z12 J1.0 K0.25 O10 "
      "T10\n"
      "G1 S12 L602 C90\nG1 I10 J10 K10 N10 O10 T10\nG1 J1.250 K1.250 O1.250 T10\n"
      "G2 K40.00 F0.37 Z30.00 E1.68 Y0.75 R12.42 B45.00 U2.75 V2.00 H28.00 W0.75 S4.00 C135.00 A359.99\n"
      "G3 K40.00 F0.37 Z2.00 E1.68 Y0.75 U2.75 V2.00 H4.00 W0.75 S4.00 L601 C135.00 A764.98\n"
      "G5 K2.00 F-1.23 Z28.00 E-1.69 Y3.50 R14.39 B-71.88 U2.75 V2.00 H28.00 W0.75 S4.00 C45.00 A404.99\n"
      "G6 K2.00 F1.23 Z4.00 E1.69 Y3.50 R14.39 B71.88 U2.75 V2.00 H4.00 W0.75 S4.00 C52.50 A3247.43 "
      "[ANG=7.50]\n"
      "G4 P10000\nG4 Z P10000\nG4 C360\nG4 C [0.4 deg.]\nG4 L601\nG4 L602 C20.00\nG4 L602 C\nG4 C360 R7.83 "
      "B0.00\n"
      "G4 L601 C20.00 R7.83 B0.00\nG28 F1.000\nG28 E2.000 R4 F1.000 C0.00\nG28 E0.5\nG28 R4 F2 E0.50\n"
      "G51 Z4.00 Z34.00\nM0\nM4 S28.6\nM5\nM601\nM602\nM650 E1 E2 MSG=WINDING COMPLETE\n"
      "D0 ST=Winding Schedule\nD0 GM = Winding_Process_Complete\nD0 ST=Mandrel Pre-Wrap #2 PA=40 WA=0.5 \n"
      "D0 LA=1_of_2 PA=1 RPM=45.00 WA=HOOP WM=4AX HOOP TI=0 LD=3 FW=0.25 HL= [Display]\nX99\r\n\n";
  Reader reader(forms);
  Line line;
  int statements = 0;
  while (reader.Next(line)) {
    EXPECT_NE(line.kind, Line::Kind::Unreadable) << line.text << ": " << line.trouble;
    statements += line.kind == Line::Kind::Statement ? 1 : 0;
  }
  EXPECT_EQ(line.number, 53);
  EXPECT_EQ(statements, 51);
}

TEST(Program, HasItsLinesWithoutTheirEnds) {
  const Program program("G20\r\n\nM5\rM4\r\nX99");
  EXPECT_EQ(program.Lines(), 4);
  EXPECT_EQ(program.Line(1), "G20");
  EXPECT_EQ(program.Line(2), "");
  EXPECT_EQ(program.Line(3), "M5\rM4");
  EXPECT_EQ(program.Line(4), "X99");
  EXPECT_EQ(program.Line(5), "");
}

TEST(Reader, RefusesWithAReason) {
  struct Case {
    const char *text, *reason;
  };
  for (const Case& c : {Case{"G7 Z1", "there is no such command"},
                        {"g1 Z1", "there is no such command"},
                        {"G1", "nothing stands behind G1"},
                        {"G1 Z", "no number stands behind Z"},
                        {"G1 Z1,5", "no number stands behind Z"},
                        {"G1 Z1 Z2", "Z stands there twice"},
                        {"G1 Z1 Q2", "G1 has no such word"},
                        {"G1 1", "G1 has no such word"},
                        {"G51 Z1", "the second Z is missing"},
                        {"G51 Z1 Z2 Z3", "Z stands there twice"},
                        {"M4", "the word S is missing"},
                        {"M5 S1", "M5 has no such word"},
                        {"G4 L603", "there are the registers 601 and 602 alone"},
                        {"C C2", "C0 or C1 is expected"},
                        {"D0 hello", "a display has no field"},
                        {"G2 Z1", "the word C is missing"}}) {
    Reader reader(c.text);
    Line line;
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ(line.kind, Line::Kind::Unreadable) << c.text;
    EXPECT_EQ(line.trouble, c.reason) << c.text;
  }
}

TEST(Reader, TakesTheDecimalSignFromTheProgram) {
  Reader reader("C C1\r\nG1 F,17 Z34,00 [Z=1.00]\nG1 E0.50 Y2,5\nC C0\nG1 Z34,00");
  Line line;
  reader.Next(line);
  reader.Next(line);
  EXPECT_DOUBLE_EQ(line.statement.words.At('F'), 0.17);
  EXPECT_DOUBLE_EQ(line.statement.words.At('Z'), 34);
  reader.Next(line);
  EXPECT_DOUBLE_EQ(line.statement.words.At('E'), 0.5);
  EXPECT_DOUBLE_EQ(line.statement.words.At('Y'), 2.5);
  reader.Next(line);
  reader.Next(line);
  EXPECT_EQ(line.kind, Line::Kind::Unreadable);
  EXPECT_EQ(line.number, 5);
  EXPECT_FALSE(reader.Next(line));
}

TEST(Reader, ReadsDisplayFields) {
  const Display layer = ReadDisplay(" LA=2_of_4 PA=1 RPM=45 WM=4AX HOOP TI=0 LD=3,5 FW=.25 HL=");
  EXPECT_EQ(layer.layer, 2);
  EXPECT_EQ(layer.layers, 4);
  EXPECT_EQ(layer.pass, 1);
  EXPECT_EQ(layer.passes, 0);
  EXPECT_EQ(layer.method, "4AX HOOP");
  EXPECT_DOUBLE_EQ(layer.leftDiameter, 3.5);
  EXPECT_DOUBLE_EQ(layer.bandInches, 0.25);
  const Display wrap = ReadDisplay(" ST=Mandrel Pre-Wrap #1 PA=40 WA=0.25 FL=");
  EXPECT_EQ(wrap.stage, "Mandrel Pre-Wrap #1");
  EXPECT_FALSE(wrap.hasLayer);
  EXPECT_EQ(ReadDisplay(" GM = Done = yes").message, "Done = yes");
}

// Numbers that follow no rule, from a start that is always the same.
TEST(Reader, SurvivesAnyBytes) {
  std::uint64_t seed = 88172645463325252;
  const auto next = [&] {
    seed ^= seed << 13;
    seed ^= seed >> 7;
    return seed ^= seed << 17;
  };
  const std::string_view pieces[] = {
      "G1 F",      "Z",       "C", "1E9", "\n",     "M4 S9\n", "D0 LA=1_of_1 PA=1_of_2 LD=4 FW=.1\n",
      "G4 L602 C", "-",       " ", "[",   "M602\n", "0",       "9999999999999",
      "\0x",       "G51 Z1 Z"};
  for (int program = 0; program < 300; ++program) {
    std::string text;
    for (int i = 0; i < 200; ++i) {
      if (next() % 8 == 0) text += static_cast<char>(next());
      text += pieces[next() % std::size(pieces)];
    }
    EXPECT_FALSE(Report(Prove(text, Limits())).empty());
  }
}

}  // namespace
}  // namespace torvane::executor
