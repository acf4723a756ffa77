// Designs that follow no pattern but a number's, and the programs that the station makes of them.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "executor/program/number.h"
#include "support/ended_program.h"

namespace torvane::executor {

namespace fs = std::filesystem;

class Station : public testing::Test {
 protected:
  Station() {
    fs::create_directories(folder_ / "home" / "TV_Design_Files");
    fs::create_directories(folder_ / "home" / "TV_G-Code_Files");
  }

  int Start(const std::string& program, const std::string& arguments) const {
    return RunToItsEnd(program, arguments, folder_).status;
  }
  std::string Out() const { return Bytes(folder_ / "out"); }

  // The program of a design, by way of the station.
  std::string Written(const fs::path& design, const std::string& options) const {
    EXPECT_EQ(
        Start(TORVANE_PROGRAM, "gcode --out - --locale point " + options + " " + Quoted(design.string())), 0)
        << Bytes(folder_ / "err");
    return Out();
  }
  std::string Store() const { return "--store " + Quoted((folder_ / "store.ini").string()); }

  TemporaryFolder temporary_;
  fs::path folder_ = temporary_.path;
};

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}
  int To(int sides) {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(sides));
  }
  template <class Value>
  Value Of(std::initializer_list<Value> values) {
    return *(values.begin() + To(static_cast<int>(values.size())));
  }
  // Between two lengths, in tenths.
  double Between(double low, double high) { return low + To(static_cast<int>((high - low) * 10) + 1) / 10.0; }

 private:
  std::uint64_t state_;
};

struct Row {
  std::string angle, speed, method, added;
};

inline std::string Tag(const std::string& name, const std::string& value) {
  return "<" + name + ">" + value + "</w>\r\n";
}

inline std::string TwoAxisDesign(bool millimetres, double left, double right, double length, double band,
                                 double home, const std::vector<Row>& rows) {
  const double unit = millimetres ? 25.4 : 1;
  const auto all = [&](auto text) {
    std::string joined;
    for (const Row& row : rows) joined += (joined.empty() ? "" : ";") + text(row);
    return joined;
  };
  const auto same = [&](const std::string& text) { return all([&](const Row&) { return text; }); };
  return Tag("DecimalComma", "NO") + Tag("Version", "420.000") + Tag("Units", millimetres ? "mm" : "in") +
         Tag("Diameter_Left", Fixed(left * unit, 3)) + Tag("Diameter_Right", Fixed(right * unit, 3)) +
         Tag("Length_Total", Fixed(length * unit, 2)) + Tag("Band_Width", Fixed(band * unit, 3)) +
         Tag("Band_Thickness", "0.012") + Tag("Number_of_Layers", std::to_string(rows.size())) +
         Tag("Winding_Angles", all([](const Row& r) { return r.angle; })) +
         Tag("Winding_Right_Coord", same(Fixed(home * unit, 2))) +
         Tag("Winding_Left_Coord", same(Fixed((home + length) * unit, 2))) +
         Tag("Winding_Speed", all([](const Row& r) { return r.speed; })) +
         Tag("Winding_Method", all([](const Row& r) { return r.method; })) +
         Tag("Layer_Type", all([](const Row& r) { return std::string(r.angle == "90" ? "HOOP" : "REG"); })) +
         Tag("Add_Revs", all([](const Row& r) { return r.added; })) + Tag("Mandrel_RPM", same("30")) +
         Tag("Carriage_Speeds", same("6"));
}

class Sweep : public Station {
 protected:
  void Put(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name, std::ios::binary) << text;
    designs_ += " " + Quoted((folder_ / name).string());
  }
  void Write(const std::string& settings) {
    ASSERT_EQ(Start(TORVANE_PROGRAM, "gcode --locale point --home " + Quoted((folder_ / "home").string()) +
                                         " " + Store() + " " + settings + designs_),
              0)
        << Bytes(folder_ / "err");
    designs_.clear();
  }
  std::string ProgramText(const std::string& name) const {
    return Bytes(folder_ / "home" / "TV_G-Code_Files" / name);
  }

  std::string designs_;
};

}  // namespace torvane::executor
