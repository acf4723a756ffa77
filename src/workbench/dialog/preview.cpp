#include "workbench/dialog/preview.h"

#include <cmath>
#include <functional>
#include <numbers>

#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "design/masks.h"
#include "persist/settings.h"
#include "text/text.h"

namespace torvane {

namespace {

constexpr WindowField kFields[] = {
    {"lblPolarTag", Kind::ReadOut, {"Pattern", "Winding angle | groups x circuits | end wrap."}},
    {"lbllayerNo", Kind::ReadOut, {"Layer", "Layer whose pattern is drawn."}},
    {"lblSplitAngle",
     Kind::ReadOut,
     {"Split Angle", "Turn of the mandrel before the head moves in the end wrap."}},
    {"lblW", Kind::ReadOut, {"End Wrap Angle", "Turn of the mandrel at each end."}},
    {"lblPhiL", Kind::ReadOut, {"Phi Len", "Turn of the mandrel along the part."}},
    {"lblG",
     Kind::ReadOut,
     {"End Grazing Angle", "The least angle at which the band touches the polar opening."}},
    {"lblC", Kind::ReadOut, {"Groups", "Bands side by side before the pattern closes."}},
    {"lblP", Kind::ReadOut, {"Circuits per Group", "Circuits of each group."}},
    {"lblCircuitNo", Kind::ReadOut, {"Circuit", "The circuit that is drawn."}},
    {"lblPassNo", Kind::ReadOut, {"Pass", "The pass that is drawn."}},
    {"lblX", Kind::ReadOut, {"X", "Place of the pointer, across."}},
    {"lblY", Kind::ReadOut, {"Y", "Place of the pointer, up."}},
    {"lblRadius", Kind::ReadOut, {"Radius", "Of the pointer from the axis."}},
    {"lblAngle", Kind::ReadOut, {"Angle", "Of the pointer round the axis."}},
    {"cmbSpeed", Kind::List, {"Drawing Speed", "How fast the pattern is drawn."}},
    {"btnPause", Kind::Control, {"Pause", "The drawing waits.", FieldUnit::None, "PAUSE"}},
    {"btnPlay", Kind::Control, {"Play", "The drawing goes on.", FieldUnit::None, "PLAY"}},
    {"btnRedraw",
     Kind::Control,
     {"Redraw", "Draws the pattern from its beginning.", FieldUnit::None, "&Redraw"}},
    {"btnClose", Kind::Control, {"Close", "Closes the preview.", FieldUnit::None, "&Close"}},
};

// How the preview shows the pointer's place and the pattern.
constexpr Mask kPoint = "####.0#"_mask;
constexpr Mask kRadius = "0.00"_mask;
constexpr Mask kTurn = "0.0"_mask;
constexpr Mask kSplitAngle = "##0.0"_mask;
constexpr Mask kCount = "#0"_mask;

struct DrawSpeed {
  std::string_view speed;
  int afterPass, afterCircuit;  // milliseconds
};
constexpr DrawSpeed kSpeeds[] = {{"1/2x", 500, 1000}, {"1x", 250, 500}, {"2x", 125, 250}, {"4x", 10, 125}};
constexpr DrawSpeed kOtherSpeed = {"", 20, 500};

const DrawSpeed& SpeedOf(std::string_view text) {
  for (const DrawSpeed& speed : kSpeeds)
    if (speed.speed == text) return speed;
  return kOtherSpeed;
}

void Append(std::vector<PolarFigure>& picture, const std::vector<PolarFigure>& figures) {
  picture.insert(picture.end(), figures.begin(), figures.end());
}

// The walk as a player: each step waits for its timer, a pause holds it, a redraw begins anew.
class PreviewWindow : public Window {
 public:
  explicit PreviewWindow(Station& owner) : Window(owner, "frmPolar", kFields) {
    field("cmbSpeed").SetEntries({"1/2x", "1x", "2x", "4x"});
    field("cmbSpeed") = GetSetting(station().platform.store, kSettings, "cmbSpeed", "1x");
    field("btnPlay").Enable(false);
    station().timers.Start(station().timers.tmrStartDraw);
  }

  void Describe(RowAngles angles) {
    const DesignState& s = station().s;
    field("lblPolarTag") = station().endView.pattern;
    field("lbllayerNo") = RowName(station().endView);
    angles_ = angles;
    if (angles == RowAngles::Left) return;
    const Field& split = s.cmbPhiSplit(station().endView.row);
    field("lblSplitAngle").CopyFrom(split);
    field("lblW").CopyFrom(s.cmbPhiW(station().endView.row));
    const MaybeText tag = TextOf(s.signs, Degrees(s, split).as(kSplitAngle));
    splitAngle_ = tag.good ? s.Read(tag.text) : Number::Failure();
  }

  void ShowPointer(double x, double y) {
    field("lblX") = Number(x).as(kPoint);
    field("lblY") = Number(y).as(kPoint);
    const DesignState& s = station().s;
    const double turn = std::atan2(y, x) * 180 / std::numbers::pi;
    field("lblRadius") = FormatNumberText(s.signs, std::hypot(x, y), kRadius) + " " + s.gUnits.text();
    field("lblAngle") = FormatNumberText(s.signs, turn < 0 ? turn + 360 : turn, kTurn) + "\xB0";
  }

  DrawnPasses passesDrawn() const { return passes_; }
  const std::vector<PolarFigure>& picture() const { return picture_; }

  bool Run(std::string_view control, Event event, int) override {
    if (event == Event::Tick) return Tick(control);
    if (event != Event::Click) return false;
    if (control == "cmbSpeed")
      SaveSetting(station().platform.store, kSettings, "cmbSpeed", field("cmbSpeed").text());
    else if (control == "btnPause" || control == "btnPlay")
      Hold(control == "btnPause");
    else if (control == "btnRedraw")
      Begin();
    else if (control == "btnClose")
      station().windows.Close(*this);
    else
      return false;
    return true;
  }

  void Closing() override {
    station().timers.Stop(station().timers.tmrStartDraw);
    station().timers.Stop(station().timers.tmrDraw);
  }

 private:
  // The paused flag holds the walk behind the pass that is drawn next, or behind its circuit.
  void Hold(bool paused) {
    field("btnPause").Enable(!paused);
    field("btnPlay").Enable(paused);
    paused_ = paused;
    if (paused || !held_) return;
    held_ = false;
    WaitBySpeed();
  }

  void WaitBySpeed() {
    if (paused_) {
      held_ = true;
      return;
    }
    const DrawSpeed& speed = SpeedOf(field("cmbSpeed").text());
    station().timers.tmrDraw.interval =
        std::chrono::milliseconds(waitsForCircuit_ ? speed.afterCircuit : speed.afterPass);
    station().timers.Start(station().timers.tmrDraw);
  }

  bool Tick(std::string_view timer) {
    if (timer == "tmrStartDraw")
      Begin();
    else if (timer == "tmrDraw")
      GoOn();
    else
      return false;
    return true;
  }
  void Begin();
  void DrawPass();
  void GoOn();

  std::vector<PolarFigure> picture_;
  DrawnPasses passes_;
  std::optional<PolarWalk> walk_;
  Number splitAngle_ = Number::Failure();
  RowAngles angles_ = RowAngles::Left;
  bool paused_ = false;
  bool held_ = false;             // it waits for PLAY
  bool closedCircuit_ = false;    // the pass drawn last
  bool waitsForCircuit_ = false;  // the pause is the one behind a circuit
};

void PreviewWindow::Begin() {
  DesignState& s = station().s;
  station().timers.Stop(station().timers.tmrStartDraw);
  station().timers.Stop(station().timers.tmrDraw);
  walk_.reset();
  held_ = false;
  picture_ = PolarBase(s);
  passes_ = {};
  const EndView& view = station().endView;
  // A redraw follows the end view where that has gone on to another pattern.
  if (view.row > 0 &&
      (field("lblPolarTag").text() != view.pattern || field("lbllayerNo").text() != RowName(view)))
    Describe(angles_);
  const std::string& tag = field("lblPolarTag").text();
  if (tag.empty()) return;
  const auto pattern = PolarPatternOf(s, SplitPatternFields(s, tag));
  if (!pattern) return;
  field("lblC") = Number(pattern->groups).plain();
  field("lblP") = Number(pattern->circuits).plain();
  field("lblPhiL") = Number(pattern->traverseRotation).as(mask::kGrazingAngle);
  const Number grazing = GrazingAngle(number(s.txtDia(0)), number(s.txtPODia(0)));
  field("lblG") = FormatNumberText(s.signs, grazing.valueOr0(), mask::kGrazingAngle) + " \xB0";
  Append(picture_, PolarArcs(*pattern, splitAngle_));
  picture_.push_back(PolarFirstBand(*pattern));
  passes_.all = static_cast<int>(pattern->groups * pattern->circuits);
  walk_.emplace(*pattern, PolarMarks::ByDivision);
  DrawPass();
}

void PreviewWindow::DrawPass() {
  const auto step = walk_->Next();
  if (!step) {
    walk_.reset();
    return;
  }
  field("lblCircuitNo") = Number(step->circuit).plain();
  field("lblPassNo") = Number(step->pass).plain();
  Append(picture_, step->figures);
  ++passes_.drawn;
  closedCircuit_ = step->closesCircuit;
  waitsForCircuit_ = false;
  WaitBySpeed();
}

void PreviewWindow::GoOn() {
  station().timers.Stop(station().timers.tmrDraw);
  if (!walk_) return;
  if (closedCircuit_ && !waitsForCircuit_) {
    waitsForCircuit_ = true;
    WaitBySpeed();
    return;
  }
  DrawPass();
}

PreviewWindow& OpenPreview(Station& station) {
  // A second press shows another pattern: the window begins anew.
  if (auto* const open = station.windows.Find<PreviewWindow>()) station.windows.Close(*open);
  return station.windows.Open<PreviewWindow>(station);
}

bool IsTooLarge(Station& station) {
  DesignState& s = station.s;
  const PatternFields pattern = SplitPatternFields(s, station.endView.pattern);
  const Number passes = Int(s.Read(pattern.groups)) * Int(s.Read(pattern.circuits));
  if (!holds(passes > kMostPolarPasses)) return false;
  station.platform.messageBox.Show("Torvane Designer",
                                   "A pattern of " + FormatNumberText(s.signs, passes.value(), kCount) +
                                       " passes cannot be drawn. The preview draws 100000 passes at most.",
                                   BoxIcon::Information);
  return true;
}

// The whole picture; `each` is told of every pass.
void DrawWhole(Station& station, const std::function<void(const PolarWalk::Step&)>& each) {
  DesignState& s = station.s;
  EndView& view = station.endView;
  view.picture = PolarBase(s);
  view.measures = PolarPatternOf(s, SplitPatternFields(s, view.pattern));
  if (!view.measures) return;
  view.picture.push_back(PolarFirstBand(*view.measures));
  PolarWalk walk(*view.measures, PolarMarks::ByBand);
  while (const auto step = walk.Next()) {
    Append(view.picture, step->figures);
    each(*step);
  }
}

}  // namespace

void DrawEndView(Station& station) {
  if (!station.endView.pattern.empty()) DrawWhole(station, [](const PolarWalk::Step&) {});
}

void DrawPolarCircPattern(Station& station, int row) {
  DesignState& s = station.s;
  const std::string pattern = station.endView.pattern;
  // A row that is not chosen yet has the angle 0 and no passes.
  Kept windingAngle;
  windingAngle = s.Read(SplitPatternFields(s, pattern).angle);
  CalculateAndShow(s, windingAngle, pattern, row);
  if (IsTooLarge(station)) {
    station.endView.picture = PolarBase(s);
    return;
  }
  std::string trace;
  DrawWhole(station, [&](const PolarWalk::Step& step) {
    if (step.circuit == s.gPolarRow) trace = PolarTracePass(s, step, row);
  });
  if (!trace.empty())
    SaveSetting(station.platform.store, kSettings, "strTRACE", PolarTraceHead(s) + "|" + trace);
}

void ShowPreview(Station& station, RowAngles angles) { OpenPreview(station).Describe(angles); }

bool HasPreview(const DesignState& s, int row) {
  return s.btn4XRow(row).shown() && !IsHoopRow(s, row) && !s.cmbPattern(row).empty();
}

void ShowPointer(Station& station, double x, double y) {
  if (auto* const open = station.windows.Find<PreviewWindow>()) open->ShowPointer(x, y);
}

DrawnPasses PassesDrawn(const Station& station) {
  const auto* const open = station.windows.Find<PreviewWindow>();
  return open != nullptr ? open->passesDrawn() : DrawnPasses{};
}

const std::vector<PolarFigure>& LastDrawing(const Station& station) {
  const auto* const open = station.windows.Find<PreviewWindow>();
  return open != nullptr ? open->picture() : station.endView.picture;
}

}  // namespace torvane
