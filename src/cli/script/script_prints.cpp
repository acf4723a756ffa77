// What a script has printed: fields, values, files and pictures as they stand.
#include <ostream>

#include "advice/advice.h"
#include "cli/computer/computer.h"
#include "cli/script/script.h"
#include "design/catalogue.h"
#include "persist/tagged_text.h"
#include "workbench/build/marks.h"
#include "workbench/dialog/preview.h"
#include "workbench/station/number_hint.h"

namespace torvane {

namespace {

const char* NameOfMark(Mark mark) {
  switch (mark) {
    case Mark::Plain:
      return "plain";
    case Mark::NeedsInput:
      return "needs input";
    case Mark::TooHigh:
      return "too high";
    case Mark::StopTooLow:
      return "stop too low";
    case Mark::NoNumber:
      return "no number";
  }
  return "";
}

const char* ColourOf(PolarColour colour) {
  switch (colour) {
    case PolarColour::Tick:
      return "#C0C0C0";
    case PolarColour::Split:
      return "#00FF00";
    case PolarColour::Wrap:
      return "#0000FF";
    case PolarColour::Closing:
      return "#FF0000";
    case PolarColour::Outline:
    case PolarColour::Band:
      return "#000000";
  }
  return "";
}

const char* YesNo(bool yes) { return yes ? "yes" : "no"; }

}  // namespace

void Script::Get(const std::string& rest) {
  Station& station = Running();
  std::string text;
  if (const Field* field = station.FindField(rest)) {
    text = field->text();
  } else {
    const NamedValue value = station.FindValue(rest);
    if (!value.found) throw ScriptError{"there is no field or value " + rest};
    text = value.text;
  }
  out_ << Printable(rest) << " = " << OneLine(text) << "\n";
}

void Script::Print(const std::string& name, std::string_view what) {
  out_ << Printable(name) << ": " << OneLine(what) << "\n";
}

void Script::List(const std::string& rest) {
  for (const std::string& entry : FieldOf(rest).entries()) out_ << "| " << OneLine(entry) << "\n";
}

void Script::ShowMark(const std::string& rest) { Print(rest, NameOfMark(ShownMark(FieldOf(rest)))); }

void Script::Shown(const std::string& rest) { Print(rest, YesNo(FieldOf(rest).shown())); }

void Script::Enabled(const std::string& rest) { Print(rest, YesNo(FieldOf(rest).enabled())); }

void Script::Caption(const std::string& rest) {
  const Field& field = FieldOf(rest);
  // A label shows its text.
  Print(rest, field.caption().empty() ? field.text() : field.caption());
}

void Script::Tip(const std::string& rest) { Print(rest, FieldOf(rest).tip()); }

void Script::Bold(const std::string& rest) { Print(rest, YesNo(FieldOf(rest).bold())); }

void Script::ShowSetting(const std::string& rest) {
  const auto [section, key] = FirstWord(rest);
  const auto value = computer_.store.Read(StationText(section), StationText(key));
  out_ << Printable(rest) << (value ? " = " + OneLine(*value) : " missing") << "\n";
}

void Script::Cat(const std::string& rest) {
  const auto text = computer_.files.ReadWhole(HomePath(rest));
  if (!text) throw ScriptError{Because(rest, text.reason())};
  for (const std::string_view line : LinesOf(text.value())) out_ << "| " << OneLine(line) << "\n";
}

void Script::Focus(const std::string&) {
  const Field* focus = Running().s.focus;
  out_ << (focus != nullptr ? NameOf(*focus) : "") << "\n";
}

void Script::Drawing(const std::string&) {
  static constexpr Mask kFour = "0.0000"_mask;
  const auto number = [](double value) { return " " + FormatNumberText({}, value, kFour); };
  for (const PolarFigure& f : LastDrawing(Running())) {
    switch (f.kind) {
      case PolarKind::Circle:
        out_ << "circle" << number(f.radius) << "\n";
        break;
      case PolarKind::Arc:
        out_ << "arc" << number(f.radius) << number(f.from) << number(f.to) << " " << ColourOf(f.colour)
             << "\n";
        break;
      case PolarKind::Tick:
      case PolarKind::Chord:
        out_ << (f.kind == PolarKind::Tick ? "tick" : "line") << number(f.x1) << number(f.y1) << number(f.x2)
             << number(f.y2) << " " << ColourOf(f.colour) << "\n";
        break;
    }
  }
}

// What the proof finds stands among them, in the words of the window's list.
void Script::Warnings(const std::string&) {
  const Station& station = Running();
  const Platform& platform = station.platform;
  DesignState copy(station.s.signs);
  copy.TakeFrom(station.s);
  const LiveResult proven = ProveDesign(copy, {platform.files.ProgramFolder(), platform.clock.Now()},
                                        executor::ReadLimits(platform.store, copy.signs.decimal));
  const std::vector<Advice> all = AdviceInWords(station, &proven);
  if (all.empty()) out_ << "no warnings\n";
  for (const Advice& advice : all) {
    const std::string_view what = advice.level ? NameOf(*advice.level) : "warning";
    out_ << what << " " << (advice.field == nullptr ? std::string("program") : NameOf(*advice.field)) << ": "
         << WithoutHome(advice.title + ". " + advice.text) << "\n";
  }
}

void Script::Hint(const std::string& rest) { Print(rest, NumberHint(FieldOf(rest), Running().s.signs)); }

}  // namespace torvane
