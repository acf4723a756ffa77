// Plays a written program beside the motions that it was written from.
#pragma once

#include <functional>
#include <string>

#include "platform/result.h"
#include "post/machine/machine.h"
#include "post/motion/event.h"
#include "post/proof/player.h"

namespace torvane::post {

// Each axis at each end of a motion, and on the way there; its time; each wait, pause and the end.
class Proof : public Listener {
 public:
  // The next line of the written program, without its end; false where there is none.
  using Source = std::function<bool(std::string& line)>;

  Proof(const Machine& machine, Source source);

  bool Take(const Event& event) override;
  // Refused, with both lines, where the two differ.
  Outcome Finish();

  // The most by which an axis stands beside its place at the end of a motion: millimetres or degrees.
  double MostBeside(Axis axis) const { return most_[axis]; }
  double seconds() const { return seconds_; }

 private:
  bool Move(const Event& event);
  bool IsTiny(const Event& event) const;
  bool IsThere(const Place& to) const;
  bool IsOnWay(const Event& event, double& share) const;
  bool CheckTime(const Event& event, double seconds, int blocks);
  double Tolerance(Axis axis) const;
  // The next step that does something; false at the end or where a line is refused.
  bool Next(Step& step);
  bool Expect(Step::Kind kind, const Event& event, const char* what, Step& step);
  bool Differ(const Event& event, const std::string& what);

  const Machine& machine_;
  Source source_;
  Player player_;
  std::string line_;
  long long number_ = 0;
  double owed_ = 0;
  double seconds_ = 0;
  Place most_;
  std::string refusal_;
  bool ended_ = false;
};

}  // namespace torvane::post
