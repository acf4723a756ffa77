// What a program makes the axes do, one thing after the other, as any winder's controller can be told it.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace torvane::post {

enum class Axis : std::uint8_t { Carriage, Mandrel, Head, HeadRotation };
inline constexpr std::size_t kAxes = 4;
inline constexpr std::array<Axis, kAxes> kAllAxes = {Axis::Carriage, Axis::Mandrel, Axis::Head,
                                                     Axis::HeadRotation};

// Carriage and delivery head in millimetres from where they stand at their limit switches, the head's
// rotation and the sum of the mandrel's turns in degrees.
class Place {
 public:
  double& operator[](Axis axis) { return at_[static_cast<std::size_t>(axis)]; }
  double operator[](Axis axis) const { return at_[static_cast<std::size_t>(axis)]; }

 private:
  std::array<double, kAxes> at_{};
};

struct Event {
  enum class Kind : std::uint8_t {
    Home,     // the axes are sent to their limit switches, wherever they stand
    Move,     // evenly from place to place
    Pause,    // nothing moves for that long
    Wait,     // for the operator's button; `text` says what for
    Message,  // `text` for the operator
    Pass,     // a pass begins; `text` names it
    Layer,    // a layer begins; `text` names it
    End,
  };

  Kind kind = Kind::End;
  int line = 0;  // of the program
  double seconds = 0;
  Place from, to;
  bool headToo = false;   // the delivery head goes home as well
  std::string_view text;  // of the program: any bytes; gone when the event has been taken
};

class Listener {
 public:
  virtual ~Listener() = default;
  // False: no further event is wanted.
  virtual bool Take(const Event& event) = 0;
};

}  // namespace torvane::post
