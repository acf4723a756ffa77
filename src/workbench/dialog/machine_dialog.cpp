#include "workbench/dialog/machine_dialog.h"

#include "persist/calibration.h"
#include "persist/settings.h"
#include "text/text.h"

namespace torvane {

namespace {

constexpr std::string_view kName = "frmMachine";

// A choice of yes and no, its key in the store, how it is stored, and the station's flag.
struct Flag {
  std::string_view field, key, fallback;
  bool asWord;  // "True" and "False", else "1" and "0"
  bool DesignState::*flag;
  std::string_view sentence;
};

constexpr Flag kFlags[] = {
    {"chkLHDrive", "gIsLHDrive", "False", true, &DesignState::gIsLHDrive, "The drive stands at the left"},
    {"chkNEMA34", "gIsNEMA34", "False", true, &DesignState::gIsNEMA34,
     "The machine has the larger motors (NEMA 34)"},
    {"chkShiftLayer", "chkShiftLayer", "1", false, &DesignState::chkShiftLayer,
     "Between layers the mandrel turns on by the degrees of the settings"},
};

struct Address {
  std::string_view field;  // also the key
  Field Fields::*station;
  std::string_view sentence;
};

constexpr Address kAddresses[] = {
    {"txtMailServer", &Fields::txtMailServer, "Mail server"},
    {"txtEmail1", &Fields::txtEmail1, "First address"},
    {"txtEmail2", &Fields::txtEmail2, "Second address"},
};

// The table of the calibration speaks in the middle of a line.
std::string AsSentence(std::string_view meaning) {
  std::string sentence(meaning);
  sentence.replace(0, 1, UpperCase(sentence.substr(0, 1)));
  return sentence;
}

std::vector<MachineLine> AllLines() {
  std::vector<MachineLine> lines;
  for (const Flag& flag : kFlags)
    lines.push_back({std::string(flag.field), std::string(flag.sentence), true});
  for (const Address& address : kAddresses)
    lines.push_back({std::string(address.field), std::string(address.sentence)});
  for (const CalibrationKey& key : CalibrationKeys())
    lines.push_back({"txt" + std::string(key.key), AsSentence(key.meaning), false, true});
  return lines;
}

std::vector<WindowField> AllFields() {
  std::vector<WindowField> fields;
  for (const MachineLine& line : MachineLines())
    fields.push_back({line.field, line.check ? Kind::Check : Kind::Text});
  fields.push_back({"lblSilenced", Kind::ReadOut});
  fields.push_back({"btnShowMessages",
                    Kind::Control,
                    {"Show All Messages Again", "Silenced messages come again.", FieldUnit::None,
                     "Show All Messages Again"}});
  fields.push_back({"btnOK", Kind::Control, {"OK", "Takes over what was changed.", FieldUnit::None, "OK"}});
  fields.push_back(
      {"btnCancel", Kind::Control, {"Cancel", "Leaves everything as it was.", FieldUnit::None, "Cancel"}});
  return fields;
}

std::vector<std::string> SilencedMessages(const SettingsStore& store) {
  std::vector<std::string> keys;
  for (const SettingsStore::Entry& entry : store.All())
    if (entry.section == kSettings && IsMessageKey(entry.key) && entry.value == "True")
      keys.push_back(entry.key);
  return keys;
}

class MachineDialog : public Window {
 public:
  explicit MachineDialog(Station& owner) : Window(owner, kName, AllFields()) { Load(); }

  bool Run(std::string_view control, Event event, int index) override;

 private:
  DesignState& s() const { return station().s; }
  SettingsStore& store() const { return station().platform.store; }
  Field& CalibrationField(const CalibrationKey& key) { return field("txt" + std::string(key.key)); }

  void Load();
  void ShowSilenced();
  bool CalibrationReads();
  void TakeOver();
};

void MachineDialog::Load() {
  for (const Flag& flag : kFlags)
    field(flag.field) = ReadsAsTrue(GetSetting(store(), kSettings, flag.key, flag.fallback)) ? "1" : "0";
  for (const Address& address : kAddresses)
    field(address.field) = GetSetting(store(), kSettings, address.field, "");
  for (const CalibrationKey& key : CalibrationKeys())
    CalibrationField(key) = CalibrationText(s(), store(), key);
  ShowSilenced();
}

void MachineDialog::ShowSilenced() {
  std::string numbers;
  for (const std::string& key : SilencedMessages(store()))
    numbers += (numbers.empty() ? "" : ", ") + key.substr(3);
  field("lblSilenced") = numbers.empty() ? "No message is silenced." : "Silenced: " + numbers;
  field("btnShowMessages").Enable(!numbers.empty());
}

// False, with the first mistake told and marked, if a figure cannot be read.
bool MachineDialog::CalibrationReads() {
  for (const CalibrationKey& key : CalibrationKeys()) {
    Field& typed = CalibrationField(key);
    const bool reads = !key.isNumber || number(typed).good();
    typed.SetMark(reads ? Mark::Plain : Mark::NeedsInput);
    if (reads) continue;
    s().focus = &typed;
    station().platform.messageBox.Show(
        "Machine", "\"" + typed.text() + "\" is no number:\r\n" + std::string(key.meaning), BoxIcon::Stop);
    return false;
  }
  return true;
}

void MachineDialog::TakeOver() {
  for (const Flag& flag : kFlags) {
    const bool chosen = field(flag.field).checked();
    if (chosen == ReadsAsTrue(GetSetting(store(), kSettings, flag.key, flag.fallback))) continue;
    SaveSetting(store(), kSettings, flag.key,
                flag.asWord ? (chosen ? "True" : "False") : (chosen ? "1" : "0"));
    s().*flag.flag = chosen;
  }
  for (const Address& address : kAddresses) {
    const std::string& typed = field(address.field).text();
    if (typed == GetSetting(store(), kSettings, address.field, "")) continue;
    SaveSetting(store(), kSettings, address.field, typed);
    s().*address.station = typed;
  }
  bool calibrated = false;
  for (const CalibrationKey& key : CalibrationKeys()) {
    const std::string& typed = CalibrationField(key).text();
    if (typed == CalibrationText(s(), store(), key)) continue;
    SaveSetting(store(), CalibrationSection(s(), key), key.key, typed);
    calibrated = true;
  }
  if (calibrated) OpenCalibrationFile(s(), store());
}

bool MachineDialog::Run(std::string_view control, Event event, int) {
  if (event != Event::Click) return Find(control) != nullptr;
  if (control == "btnShowMessages") {
    for (const std::string& key : SilencedMessages(store())) SaveSetting(store(), kSettings, key, "False");
    ShowSilenced();
    return true;
  }
  if (control != "btnOK" && control != "btnCancel") return false;
  if (control == "btnOK") {
    if (!CalibrationReads()) return true;
    TakeOver();
  }
  station().windows.Close(*this);
  return true;
}

}  // namespace

const std::vector<MachineLine>& MachineLines() {
  static const std::vector<MachineLine> lines = AllLines();
  return lines;
}

void OpenMachine(Station& station) { station.windows.OpenOnce<MachineDialog>(station); }

}  // namespace torvane
