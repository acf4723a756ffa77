// A run that is taken to a moment, against one that has been played up to there.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "executor/player/player.h"

namespace torvane::executor {

// Every read-out of the run.
struct Shown {
  std::string words;
  std::vector<double> figures;

  // A run adds up its time in pieces of its own.
  bool operator==(const Shown& other) const {
    return words == other.words &&
           std::equal(figures.begin(), figures.end(), other.figures.begin(), other.figures.end(),
                      [](double a, double b) { return std::abs(a - b) <= 1e-6 + 1e-11 * std::abs(a); });
  }
};

inline void PrintTo(const Shown& shown, std::ostream* out) {
  *out << shown.words;
  for (const double figure : shown.figures) *out << ' ' << figure;
}

inline Shown AllShown(const Player& player) {
  const Position& at = player.At();
  const Screen& s = player.screen();
  const Laid laid = player.LaidSoFar();
  Shown shown;
  shown.words = "line " + std::to_string(player.LineNow()) + (player.Moving() ? " moving" : "") +
                (player.EndlessNow() ? " endless" : "") + " layer " + std::to_string(player.LayerIndex()) +
                " laid " + std::to_string(laid.strokes) + (laid.partly ? " and on" : "");
  for (const std::string_view words :
       {s.stage, s.message, s.rpm, s.carriageSpeed, s.windingAngle, s.method, s.minutesLeft})
    shown.words += '|' + std::string(words);
  if (player.NextWait() != nullptr) shown.words += " wait " + std::to_string(player.NextWait()->line);
  shown.figures = {player.Elapsed(),
                   player.Remaining(),
                   at.carriage,
                   at.head,
                   at.rotation,
                   at.mandrel,
                   player.TargetZ(),
                   player.Rpm(),
                   s.layer,
                   s.layers,
                   s.pass,
                   s.passes,
                   laid.partly ? laid.z : 0,
                   player.Cover().Once(),
                   player.Cover().Twice()};
  return shown;
}

// Waits on the way are pressed.
inline void PlayUpTo(Player& player, double seconds) {
  while (player.Elapsed() < seconds) {
    player.PressButton();
    player.Run();
    const double before = player.Elapsed();
    player.Advance(seconds - before);
    if (player.State() == RunState::Finished) return;
  }
}

// Moments all over the program in an order that jumps to and fro; and the lines that begin there.
inline void ExpectSeeksLikePlaying(const std::string& text, int moments = 40) {
  const auto program = std::make_shared<const Program>(text);
  Player played, sought;
  played.Load(program);
  sought.Load(program);
  const double whole = played.course().seconds;
  std::vector<Shown> expected;
  std::vector<double> times;
  for (int i = 0; i < moments; ++i) {
    times.push_back(whole * (i + 0.3183) / moments);
    PlayUpTo(played, times.back());
    expected.push_back(AllShown(played));
  }
  for (int i = 0; i < moments; ++i) {
    const auto at = static_cast<std::size_t>(i * 17 % moments);
    sought.SeekTime(times[at]);
    ASSERT_EQ(AllShown(sought), expected[at]) << "at " << times[at] << " s of " << whole;
  }
  Player again;
  again.Load(program, played.course());
  again.Run();
  for (int i = 1; i < moments; ++i) {
    const int line = static_cast<int>(static_cast<long long>(program->Lines()) * i / moments);
    sought.SeekLine(line);
    ASSERT_TRUE(sought.LineNow() >= line || sought.State() == RunState::Waiting ||
                sought.State() == RunState::Finished || sought.EndlessNow())
        << line;
    if (sought.State() == RunState::Finished || sought.EndlessNow()) break;
    const double on = sought.Elapsed() + 0.037;
    PlayUpTo(sought, on);
    PlayUpTo(again, on);
    ASSERT_EQ(AllShown(sought), AllShown(again)) << "behind line " << line;
  }
}

}  // namespace torvane::executor
