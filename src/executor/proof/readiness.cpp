#include "executor/proof/readiness.h"

namespace torvane::executor {

Readiness::Driven Readiness::DrivenBy(const Statement& statement, const Motion& motion) {
  const Words& words = statement.words;
  Driven driven;
  switch (statement.command) {
    case Command::Home:
      driven.home = true;
      return driven;
    case Command::Turn:
      driven.mandrel = words.At('S') != 0;
      return driven;
    case Command::Endless:
      driven.carriage = true;
      return driven;
    case Command::Move:
    case Command::Ellipse:
    case Command::Withdraw:
      driven.carriage = words.Has('Z');
      driven.head = words.Has('Y');
      break;
    case Command::Dwell:
      break;
    default:
      return driven;
  }
  driven.rotation = words.Has('B');
  driven.mandrel = motion.mandrelTurns;
  return driven;
}

void Readiness::Take(const Line& line, const Motion& motion, const Place& place) {
  const Command command = line.statement.command;
  switch (command) {
    case Command::NumberForm:
      TakeForm(line);
      return;
    case Command::Inches:
    case Command::Millimetres:
      TakeUnit(line);
      return;
    case Command::Identity:
      TakeIdentity(line);
      break;
    case Command::MotorsOn:
    case Command::MotorsOff:
      TakeMotors(line, place);
      return;
    case Command::Wait:
      pressed_ = true;
      stopped_ = false;
      return;
    case Command::Display:
      TakeDisplay(ReadDisplay(line.statement.body));
      return;
    default:
      break;
  }
  anyNumber_ = anyNumber_ || !line.statement.words.Empty();
  const Driven driven = DrivenBy(line.statement, motion);
  if (driven.Any()) {
    WatchOnce(line);
    WatchMotors(line, place);
    WatchHome(line, driven, place);
    WatchButton(line, driven, place);
    moved_ = true;
  }
  if (command == Command::Stop) {
    pressed_ = false;
    stopped_ = moved_;
    done_ = done_ || complete_;
  }
}

// The sign of the numbers is told before the first one; told again, it is another program's.
void Readiness::TakeForm(const Line& line) {
  const bool comma = line.statement.words.At('C') == 1;
  if (comma != comma_ && anyNumber_)
    Say(Kind::NumberForm, line, 0,
        comma ? "From here on numbers are to have a decimal comma; those above have been read with a point."
              : "From here on numbers are to have a decimal point; those above have been read with a comma.");
  comma_ = comma;
}

void Readiness::TakeUnit(const Line& line) {
  const Command unit = line.statement.command;
  if (unit_ && *unit_ != unit && anyNumber_)
    Say(Kind::Units, line, 0,
        unit == Command::Inches ? "The unit changes to inches behind lengths in millimetres."
                                : "The unit changes to millimetres behind lengths in inches.");
  unit_ = unit;
}

void Readiness::TakeIdentity(const Line& line) {
  const Words& words = line.statement.words;
  if (identity_) {
    const bool alike = words.At('T') == identity_->At('T') && words.At('Z') == identity_->At('Z') &&
                       words.Has('Y') == identity_->Has('Y') && words.At('Y') == identity_->At('Y');
    if (!alike || moved_)
      Say(Kind::Identity, line, 0,
          std::string("A second X line") +
              (alike ? " in the middle of the program: where the axes stand is set anew."
                     : " tells another machine: the carriage's travel and the place of its axes move."));
  }
  identity_ = words;
}

void Readiness::TakeMotors(const Line& line, const Place& place) {
  motorsOn_ = line.statement.command == Command::MotorsOn;
  motorsTold_ = false;
  if (motorsOn_) return;
  if (!place.winds) {
    homed_ = Driven();  // what is let go may be turned by hand
    return;
  }
  motorsTold_ = true;
  Say(Kind::MotorsOff, line, place.layer,
      "The motors are switched off in the middle of layer " + std::to_string(place.layer) +
          ": carriage and mandrel lose their places.");
}

void Readiness::TakeDisplay(const Display& display) {
  if (!display.stage.empty()) {
    // Pre-wraps begin behind the button, all other stages wait for it themselves.
    if (display.stage.substr(0, 16) != "Mandrel Pre-Wrap") pressed_ = false;
    complete_ = done_ = false;
  }
  if (display.message == "Winding_Process_Complete") complete_ = true;
}

// What is told once for the whole program is missed once.
void Readiness::WatchOnce(const Line& line) {
  if (moved_) return;
  if (!unit_)
    Say(Kind::Units, line, 0,
        "The machine moves and has not been told its unit (G20 or G21): the same lengths are 25.4 times as "
        "long in inches as in millimetres.");
  if (!identity_)
    Say(Kind::Identity, line, 0,
        "The machine moves and no X line has told where its axes are at home: every position is a guess.");
}

void Readiness::WatchMotors(const Line& line, const Place& place) {
  if (motorsOn_ || motorsTold_) return;
  motorsTold_ = true;
  Say(Kind::MotorsOff, line, place.layer,
      "The machine is to move while its motors are off (no M17 before): nothing moves, and the program runs "
      "on" +
          place.InBrackets() + '.');
}

void Readiness::WatchHome(const Line& line, const Driven& driven, const Place& place) {
  const Words& words = line.statement.words;
  if (driven.home) {
    homed_.carriage |= words.Has('F');
    homed_.head |= words.Has('E');
    homed_.rotation |= words.Has('R');
  }
  const auto watch = [&](bool moves, bool& homed, std::string_view what) {
    if (!moves || homed) return;
    homed = true;  // told
    Say(Kind::NotHomed, line, place.layer,
        std::string(what) + " moves and has not been to its limit switch (G28): where it is is not known" +
            place.InBrackets() + '.');
  };
  watch(driven.carriage, homed_.carriage, "The carriage");
  watch(driven.head, homed_.head, "The delivery head");
  watch(driven.rotation, homed_.rotation, "The delivery head's rotation");
}

void Readiness::WatchButton(const Line& line, const Driven& driven, const Place& place) {
  const bool turns = driven.mandrel && !pressed_, runs = driven.carriage && stopped_;
  if (!turns && !runs) return;
  // Told; and a mandrel that turns goes on.
  pressed_ = pressed_ || turns;
  stopped_ = false;
  if (done_) {
    Say(Kind::BehindEnd, line, place.layer,
        "This line moves the machine behind the end of the winding, where no stage follows.");
  } else if (turns && place.stage.substr(0, 19) == "Mandrel Pre-Wrap #2") {
    Say(Kind::PreWrapStarts, line, place.layer,
        "The mandrel begins to turn for pre-wrap #2 without waiting for the button: it waits for pre-wrap #1 "
        "alone.");
  } else if (turns) {
    Say(Kind::NoWait, line, place.layer,
        "The mandrel begins to turn without waiting for the operator's button (M0)" + place.InBrackets() +
            '.');
  } else {
    Say(Kind::NoWait, line, place.layer,
        "The carriage moves on behind M5 without waiting for the operator's button (M0)" +
            place.InBrackets() + '.');
  }
}

}  // namespace torvane::executor
