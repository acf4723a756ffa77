// How each controller is told what is no motion. One file a controller; motions are the writer's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "post/machine/machine.h"

namespace torvane::post {

using Lines = std::vector<std::string>;

struct Dialect {
  // For the operator; no line where the controller, or this machine, shows none. The text holds letters,
  // digits, blanks and ",.:+-=/_" alone.
  Lines (*message)(const Machine& machine, const std::string& text);
  Lines (*comment)(const Machine& machine, const std::string& text);
  // Stands until the operator lets it go on.
  Lines (*wait)(const Machine& machine, const std::string& text);
  // Gives the standing mandrel the coordinate, which is a word: "A0".
  Lines (*setMandrel)(const Machine& machine, const std::string& word);
  // The coordinates are words: "X0 Z0", to be reached at the machine's own speed, not above `speed` a minute
  // where the controller must be told one.
  Lines (*goHome)(const std::string& words, const std::string& speed);
};

const Dialect& LinuxCncDialect();
const Dialect& GrblDialect();
const Dialect& GrblHalDialect();
const Dialect& MarlinDialect();
const Dialect& DialectOf(Controller controller);

// A text of a program without what a controller acts on, in a message or a comment as well.
std::string Harmless(std::string_view text);

// Waits that long with nothing moving.
std::string PauseLine(const Machine& machine, double seconds);

// Plain decimals with so many digits that count.
std::string Digits(double value, int digits);

}  // namespace torvane::post
