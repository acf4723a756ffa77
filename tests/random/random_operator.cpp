#include "random/random_operator.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "design/catalogue.h"
#include "handoff/executor.h"
#include "persist/tagged_text.h"
#include "text/text.h"
#include "workbench/dialog/machine_dialog.h"
#include "workbench/dialog/preview.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"

namespace torvane {

namespace {

constexpr std::string_view kFolder = "C:\\Torvane\\TV_Design_Files\\";

// Opening a schedule of 15 rows draws a few thousand fields.
constexpr std::size_t kMostRepaints = 20'000;

// Words in which a field's text, whatever it stands for, is likely to make sense.
struct Likely {
  std::string_view field;
  std::vector<std::string> texts;
};

const std::vector<Likely>& LikelyTexts() {
  static const std::vector<Likely> all = {
      {"txtNumberOfLayers", {"1", "2", "3", "5", "8", "15", "0", "16", "2.5"}},
      {"txtWA", {"20", "30", "45", "45.25", "54.7", "60", "75", "81", "89", "90", "5", "25"}},
      {"txtBandWidth", {"0.125", "0.25", "0.5", "1", "0.05"}},
      {"txtBandWidthMM", {"3", "6.35", "12", "25.4"}},
      {"txtBandThickness", {"0.005", "0.01", "0.02", "0.1"}},
      {"txtBandThicknessMM", {"0.1", "0.25", "0.5"}},
      {"txtDiameterLeft", {"1", "2.5", "4", "6", "100"}},
      {"txtDiameterRight", {"1", "2.5", "4", "6", "100"}},
      {"txtDia", {"2", "4", "4.5", "6", "150"}},
      {"txtPODia", {"0.5", "1", "1.5", "2", "50"}},
      {"txtZ2", {"4", "28", "12.25", "40", "1"}},
      {"txtZ4", {"4", "6", "22", "24", "300"}},
      {"txtAdjust", {"0.5", "1", "3", "25", "27"}},
      {"txtLengthTotal", {"12", "24", "36", "600"}},
      {"cmb3D", {"REG", "HOOP", "2AX", "hoop"}},
      {"cmbPattern",
       {"45", "30", "HOOP", "45.00|2|11|0.25", "12.50|1|7|0.1", "180|9|9|9", "Select ...", "a|b|c|d"}},
      {"cmbPhiW", {"180\xB0", "111\xB0", "230\xB0", "175", "\xB0"}},
      {"cmbPhiSplit", {"45\xB0", "25\xB0", "75\xB0", "50", "\xB0"}},
      {"cmb2AxisLayerType", {"REG", "HOOP", "Exact", "EX No Dwell"}},
      {"cmbSpeed", {"slow", "med", "fast", "SLOW", ""}},
      {"cmbMethod", {"ms", "cs", "MS", ""}},
  };
  return all;
}

constexpr std::string_view kWindowFields[] = {"txtLimitSwitchApproachSpeed",
                                              "txtMandrelAdvanceAfterPreWrapCarriageStop",
                                              "txtPreWrapFullLengthYN",
                                              "txtMandrelRotateAfterLayerCompletion",
                                              "txtHeatGunJustKeepGoingYN",
                                              "txtAddPasses",
                                              "txtAddExtra360AtFarEndYN",
                                              "txtMidAngle",
                                              "txtSplitAngle",
                                              "txtDHYtoMandrelCenter",
                                              "txtDHYtoMandrelCenterMM",
                                              "txtDHStructureWidth",
                                              "txtDHStructureWidthMM",
                                              "txtCarriageOffsetFromRMPFace",
                                              "txtCarriageOffsetFromRMPFaceMM",
                                              "txtUseProportionalFilamentSpacingYN",
                                              "txt2AXAdd360YN",
                                              "txtNoListPatternDegrees",
                                              "txtDelayTimeInG456ToWaitForMandrelinMS",
                                              "txt3AX1stPass360",
                                              "txtPauseBeforeHoop",
                                              "Text2",
                                              "Text3",
                                              "txtcSpeed(0)",
                                              "txtcSpeed(2)",
                                              "txtcSpeedmm(1)",
                                              "txtmSpeed(0)",
                                              "txtmSpeed(2)",
                                              "txtmSpeedmm(1)",
                                              "cmbSpeed"};

struct Button {
  std::string_view control;
  int index = 0;
};
constexpr Button kWindowButtons[] = {
    {"btnOK"},          {"btnCancel"},  {"btnClose"},  {"btnPause"},
    {"btnPlay"},        {"btnRedraw"},  {"lblTab", 0}, {"lblTab", 1},
    {"lblTab", 2},      {"lblTab", 3},  {"Label21"},   {"Command5"},
    {"Command6"},       {"lblHelpURL"}, {"cmbSpeed"},  {"lblCheckNewSoftware"},
    {"btnShowMessages"}};
constexpr std::string_view kWindowOpeners[] = {"Command3", "btnProperties", "mnuSpeeds", "mnuProperties",
                                               "Label10",  "Label9",        "mnuAbout",  "mnuMachine"};

std::string FirstDifference(std::string_view one, std::string_view other) {
  const auto lines = [](std::string_view text) {
    std::vector<std::string_view> all;
    for (const std::string_view line : LinesOf(text)) all.push_back(line);
    return all;
  };
  const auto a = lines(one), b = lines(other);
  for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
    const std::string_view left = i < a.size() ? a[i] : "(end)", right = i < b.size() ? b[i] : "(end)";
    if (left != right) return "\n  " + std::string(left) + "\n  " + std::string(right);
  }
  return "\n  (line ends)";
}

}  // namespace

RandomOperator::RandomOperator(std::uint64_t seed, const std::vector<Sample>& samples) : random_(seed) {
  stage_.files.MakeFolder("C:\\Torvane\\TV_Design_Files");
  stage_.files.MakeFolder("C:\\Torvane\\TV_G-Code_Files");
  for (const Sample& sample : samples) {
    std::string damaged = sample.bytes;
    for (int bytes = 0; bytes < 20 && !damaged.empty(); ++bytes)
      damaged[static_cast<std::size_t>(Below(damaged.size()))] = static_cast<char>(Below(256));
    for (const auto& [name, bytes] :
         {std::pair(sample.name, sample.bytes), std::pair("x" + sample.name, damaged)}) {
      designs_.push_back(std::string(kFolder) + name);
      stage_.files.Put(designs_.back(), bytes);
    }
  }
  stage_.files.FailWrites(std::string(kFolder) + "full.t2d", "There is no room.");
  stage_.files.FailWrites(std::string(kFolder) + "full.t4d", "There is no room.");
  for (const auto& table : WholeStation::Tables())
    for (const Operation& operation : table)
      // Changes and ticks are no doings of an operator.
      if (operation.event != Event::Change && operation.event != Event::Tick)
        operations_.push_back(&operation);
  Start();
}

void RandomOperator::Repaint(const Field& field) {
  if (++repaints_ <= kMostRepaints) return;
  throw Broken("it does not come to rest: " + NameOf(field) + " is drawn again and again");
}

bool RandomOperator::GoOn(double) { return ++reports_ < 100; }

void RandomOperator::Start() {
  station_ = std::make_unique<WholeStation>(stage_.AsPlatform());
  station_->s.watcher = this;
  station_->programProgress = this;
  fields_.clear();
  ForEachField(station_->s, [this](Field& field) { fields_.push_back(&field); });
  Form_Load(*station_);
}

void RandomOperator::Do() {
  static constexpr Doing kDoings[] = {
      {300, &RandomOperator::TypeIntoField}, {40, &RandomOperator::TypeIntoWindow},
      {60, &RandomOperator::SetField},       {120, &RandomOperator::ChooseEntry},
      {40, &RandomOperator::Check},          {150, &RandomOperator::RunOperation},
      {30, &RandomOperator::UseRowMenu},     {20, &RandomOperator::SwitchFamily},
      {20, &RandomOperator::NewOpenSave},    {30, &RandomOperator::ClickInWindow},
      {20, &RandomOperator::Preview},        {60, &RandomOperator::UndoRedo},
      {80, &RandomOperator::Wait},           {2, &RandomOperator::Restart},
      {15, &RandomOperator::OpenSample}};
  int total = 0;
  for (const Doing& doing : kDoings) total += doing.weight;
  QueueAnswers();
  repaints_ = 0;
  reports_ = 0;
  auto at = static_cast<int>(Below(static_cast<std::uint64_t>(total)));
  for (const Doing& doing : kDoings) {
    at -= doing.weight;
    if (at >= 0) continue;
    (this->*doing.run)();
    break;
  }
  mostRepaints_ = std::max(mostRepaints_, repaints_);
  if (station_->cutEchoes > 0) throw Broken("an echo had to be cut");
  if (station_->ended) Start();
}

// What the operator will answer to whatever is asked, and what else was asked before goes.
void RandomOperator::QueueAnswers() {
  stage_.messageDialog.answers.clear();
  stage_.messageDialog.shown.clear();
  stage_.messageBox.shown.clear();
  stage_.fileDialog.answers.clear();
  stage_.fileDialog.asked.clear();
  stage_.launcher.starts.clear();
  stage_.launcher.links.clear();
  for (int i = 0; i < 3; ++i) stage_.messageDialog.answers.push_back({OneIn(2), OneIn(200)});
  if (OneIn(20)) stage_.launcher.FailNext("it cannot be started");
}

std::string RandomOperator::Number() {
  const auto whole = std::to_string(Below(OneIn(4) ? 1000 : 60));
  if (OneIn(3)) return whole;
  const char sign = OneIn(20) ? ',' : stage_.locale.signs.decimal;
  return whole + sign + std::to_string(Below(OneIn(2) ? 10 : 1000));
}

std::string RandomOperator::Bytes(std::size_t most) {
  std::string bytes;
  for (std::uint64_t n = Below(most + 1); n > 0; --n) bytes += static_cast<char>(Below(256));
  return bytes;
}

std::string RandomOperator::Odd() {
  static const std::string kOdd[] = {"",
                                     " ",
                                     "0",
                                     "-1",
                                     "-0",
                                     "1e5",
                                     "1E-7",
                                     "1e308",
                                     "1e309",
                                     "-1e308",
                                     "1d3",
                                     "&H1F",
                                     "0x10",
                                     "nan",
                                     "inf",
                                     "1..2",
                                     "1,2,3",
                                     "+5",
                                     "- 5",
                                     "$12.50",
                                     "(3)",
                                     "99999999999999999999",
                                     "2147483648",
                                     "-2147483649",
                                     "32768",
                                     "0.0000001",
                                     ".",
                                     ",",
                                     ";",
                                     "a;b;c",
                                     "<Units>mm</w>",
                                     "</w>",
                                     "HOOP",
                                     "Y",
                                     "n",
                                     "True",
                                     "12:30",
                                     "1/2/2024",
                                     "%41",
                                     "|",
                                     "45||",
                                     "\xB0"};
  if (OneIn(8)) return Bytes(12);
  if (OneIn(40)) return std::string(300 + Below(3000), OneIn(2) ? '9' : 'x');
  return OneOf(kOdd);
}

std::string RandomOperator::TextFor(const Field& field) {
  if (OneIn(8)) return Odd();
  if (OneIn(4)) return Number();
  if (!field.entries().empty() && !OneIn(3)) return OneOf(field.entries());
  for (const Likely& likely : LikelyTexts()) {
    if (likely.field != field.row().name) continue;
    return Replaced(OneOf(likely.texts), '.', stage_.locale.signs.decimal);
  }
  return Number();
}

Field& RandomOperator::AnyField() { return *OneOf(fields_); }

// Of the family in use, and rather a field that the operator may type in.
Field& RandomOperator::UsedField() {
  for (int tries = 0; tries < 200; ++tries) {
    Field& field = AnyField();
    const bool typed = field.row().kind == Kind::Text || field.row().kind == Kind::List;
    const bool row = IsScheduleRow(field.row());
    if (typed && IsUsed(field.row(), field.index(), station_->s.family()) &&
        (!row || field.index() <= 4 || OneIn(6)))
      return field;
  }
  return AnyField();
}

void RandomOperator::TypeIntoField() {
  Field& field = OneIn(20) ? AnyField() : UsedField();
  const std::string text = TextFor(field);
  doing_ = "type " + NameOf(field) + " " + text;
  // Key by key, as fingers do, or at once, as from a clipboard.
  if (OneIn(4) && text.size() < 20)
    for (std::size_t length = 1; length <= text.size(); ++length)
      station_->Type(field, text.substr(0, length));
  else
    station_->Type(field, text);
}

void RandomOperator::TypeIntoWindow() {
  if (station_->windows.empty()) return RunOperation();
  const bool machine = station_->windows.Top().name() == "frmMachine";
  const std::string name(machine ? OneOf(MachineLines()).field : OneOf(kWindowFields));
  Field* field = station_->FindField(name);
  if (field == nullptr) return;
  if (field->row().kind == Kind::Check) {
    doing_ = "check " + name;
    return station_->Check(*field, OneIn(2));
  }
  const std::string text = TextFor(*field);
  doing_ = "type " + name + " " + text;
  station_->Type(*field, text);
}

void RandomOperator::SetField() {
  Field& field = OneIn(3) ? AnyField() : UsedField();
  const std::string text = TextFor(field);
  doing_ = "set " + NameOf(field) + " " + text;
  field = text;
}

void RandomOperator::ChooseEntry() {
  Field& field = UsedField();
  if (field.row().kind != Kind::List && !OneIn(10)) return TypeIntoField();
  const std::string text = field.entries().empty() ? TextFor(field) : OneOf(field.entries());
  doing_ = "choose " + NameOf(field) + " " + text;
  station_->Choose(field, text);
}

void RandomOperator::Check() {
  std::vector<Field*> boxes;
  for (Field* field : fields_)
    if (field->row().kind == Kind::Check || field->row().kind == Kind::Option) boxes.push_back(field);
  Field& box = *OneOf(boxes);
  const bool option = box.row().kind == Kind::Option;
  const bool on = OneIn(2);
  doing_ = "check " + NameOf(box) + (on ? " on" : " off");
  station_->Choose(box, option ? (on ? "True" : "False") : (on ? "1" : "0"));
}

int RandomOperator::IndexFor(std::string_view control) {
  if (OneIn(50)) return OneIn(2) ? -1 : 99;
  for (const FieldRow& row : Catalogue())
    if (row.name == control)
      return row.indexes.IndexAt(static_cast<int>(Below(
          static_cast<std::uint64_t>(OneIn(4) ? row.indexes.count() : std::min(row.indexes.count(), 4)))));
  return static_cast<int>(Below(2));
}

void RandomOperator::SetOff(const std::string& control, Event event, int index) {
  doing_ = "event " + std::to_string(static_cast<int>(event)) + " of " + control + "(" +
           std::to_string(index) + ")";
  station_->Run(control, event, index);
}

void RandomOperator::RunOperation() {
  const Operation& operation = *OneOf(operations_);
  if (operation.control == "mnuQuit" && !OneIn(5)) return;
  if (operation.control == "mnuOpenFile" || operation.control == "mnuSaveFile") return NewOpenSave();
  SetOff(std::string(operation.control), operation.event, IndexFor(operation.control));
}

void RandomOperator::UseRowMenu() {
  static constexpr std::string_view kMenu[] = {"mnuCopy",      "mnuPaste",        "mnuClearRow",
                                               "mnuDeleteRow", "mnuReCalcSpeeds", "mnuRecalcAllRows"};
  const bool four = station_->s.gShow4Axis;
  const int row = static_cast<int>(1 + Below(OneIn(5) ? 25 : 5));
  SetOff(four ? "btn4XRow" : "btn2XRow", Event::PressRight, row);
  SetOff(four ? "btn4XRow" : "btn2XRow", Event::ReleaseRight, row);
  SetOff(std::string(OneOf(kMenu)), Event::Click, 0);
}

void RandomOperator::SwitchFamily() {
  static constexpr Button kSwitches[] = {{"optX", 0},    {"optX", 1},   {"mnu2Axis"}, {"mnu4Axis"},
                                         {"lbl2or4AX"},  {"mnuINCH"},   {"mnuMM"},    {"optType", 0},
                                         {"optType", 1}, {"optType", 2}};
  const Button& button = OneOf(kSwitches);
  SetOff(std::string(button.control), Event::Click, button.index);
}

std::string RandomOperator::PathOf(bool open) {
  static constexpr std::string_view kNames[] = {"a", "b", "M\xFCller", "two words", "full", "tvd", "n\\o"};
  if (open && !OneIn(3)) return OneOf(designs_);
  if (OneIn(50)) return OneIn(2) ? "" : "Z:\\nowhere\\" + Bytes(8);
  static constexpr std::string_view kEnds[] = {".t2d", ".t4d", ".tvd", ""};
  const std::string_view end = OneIn(10) ? OneOf(kEnds) : station_->s.mnu2Axis ? ".t2d" : ".t4d";
  return std::string(kFolder) + std::string(OneOf(kNames)) + std::string(end);
}

void RandomOperator::NewOpenSave() {
  const auto answer = [this](bool open) {
    stage_.fileDialog.answers.clear();
    for (int i = 0; i < 2; ++i) {
      if (OneIn(8))
        stage_.fileDialog.answers.emplace_back(std::nullopt);
      else
        stage_.fileDialog.answers.emplace_back(PathOf(open));
    }
  };
  switch (Below(4)) {
    case 0:
      answer(false);
      return SetOff("mnuNewFile", Event::Click, 0);
    case 1:
      answer(true);
      return SetOff("btnOPen", Event::Click, 0);
    default:
      answer(false);
      return SetOff("btnSaveAS", Event::Click, 0);
  }
}

void RandomOperator::ClickInWindow() {
  if (station_->windows.empty()) return SetOff(std::string(OneOf(kWindowOpeners)), Event::Click, 0);
  const Button& button = OneOf(kWindowButtons);
  SetOff(std::string(button.control), Event::Click, button.index);
}

void RandomOperator::Preview() {
  SetOff("btn4XRow", Event::Click, static_cast<int>(1 + Below(OneIn(5) ? 25 : 4)));
  ShowPointer(*station_, static_cast<double>(Below(500)), -static_cast<double>(Below(500)));
}

void RandomOperator::UndoRedo() {
  const bool undo = OneIn(2);
  doing_ = undo ? "undo" : "redo";
  for (std::uint64_t n = 1 + Below(3); n > 0; --n) undo ? station_->Undo() : station_->Redo();
}

void RandomOperator::Wait() {
  static constexpr int kMostTicks = 500;
  const auto time = std::chrono::milliseconds(Below(OneIn(5) ? 20'000 : 1000));
  doing_ = "wait " + std::to_string(time.count());
  const Moment end = stage_.clock.Now() + time;
  for (int ticks = 0; ticks < kMostTicks; ++ticks) {
    const auto next = station_->timers.NextTick();
    if (!next || *next > end) break;
    stage_.clock.Set(std::max(*next, stage_.clock.Now()));
    station_->Tick();
  }
  stage_.clock.Set(end);
}

// Ends the program and starts it again, perhaps on a computer with other signs.
void RandomOperator::Restart() {
  doing_ = "restart";
  Form_Unload(*station_);
  if (OneIn(4)) stage_.locale.signs.decimal = OneIn(2) ? ',' : '.';
  if (OneIn(4)) stage_.store.Write("Settings", "gIsLHDrive", OneIn(2) ? "True" : "False");
  if (OneIn(4)) stage_.store.Write("Settings", "chkShiftLayer", OneIn(2) ? "1" : "0");
  for (int message : {1, 5, 6, 11, 12, 31, 32, 33, 47, 48, 567})
    stage_.store.Write("Settings", "MSG" + std::to_string(message), "False");
  Start();
  if (!OneIn(4)) stage_.clock.Advance(std::chrono::seconds(6));
}

void RandomOperator::OpenSample() {
  const std::string& path = OneOf(designs_);
  if (path.ends_with("t2d") != station_->s.mnu2Axis) station_->Run("lbl2or4AX", Event::Click);
  stage_.messageDialog.answers.clear();
  stage_.fileDialog.answers = {path};
  doing_ = "open " + path;
  station_->Run("btnOPen", Event::Click);
}

std::string RandomOperator::Saved(const std::string& path) {
  if (!SaveDesign(*station_, path)) throw Broken("the design could not be saved");
  return stage_.files.ReadWhole(path).value();
}

void RandomOperator::CheckDesign() {
  doing_ = "check the design";
  repaints_ = 0;
  const Snapshot before = station_->s.TakeSnapshot();
  int steps = 0;
  for (; station_->CanUndo(); ++steps) station_->Undo();
  for (; steps > 0; --steps) station_->Redo();
  if (!station_->s.HasTextsOf(before)) throw Broken("undone and done again it is another design");

  repaints_ = 0;
  reports_ = 0;
  const std::string path = std::string(kFolder) + "check" + (station_->s.mnu2Axis ? ".t2d" : ".t4d");
  Saved(path);
  // A text that its reader does not take leaves the blank's own, which passes its mask at the next reading;
  // so a design may need two openings to come to rest.
  std::string former, saved;
  for (int openings = 0; openings < 3; ++openings) {
    if (OpenDesign(*station_, path) != Opened::Whole) throw Broken("the saved design cannot be opened");
    former = std::exchange(saved, Saved(path));
  }
  if (former != saved)
    throw Broken("it saves to other bytes at its next save:" + FirstDifference(former, saved));
}

}  // namespace torvane
