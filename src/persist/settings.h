// The settings store: every key with its default, and when it is read and written.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "design/state.h"
#include "platform/settings_store.h"

namespace torvane {

inline constexpr std::string_view kSettings = "Settings";

// What the store holds under a key, else `fallback`.
std::string GetSetting(const SettingsStore& store, std::string_view section, std::string_view key,
                       std::string_view fallback);
// Stores a value. A refusal is told elsewhere (KeptStore), so that no operation has to.
void SaveSetting(SettingsStore& store, std::string_view section, std::string_view key,
                 std::string_view value);

// Of a stored Boolean: the word in either case, or a number other than 0.
bool ReadsAsTrue(std::string_view stored);

// A field of an array, or a place of three speed classes, by its index.
struct FieldAt {
  FieldArray Fields::*array;
  int index;
};
struct ClassAt {
  std::array<double, 3> DesignState::*classes;
  int speedClass;
};
using SettingTarget = std::variant<std::monostate, Field Fields::*, FieldAt, ClassAt, double DesignState::*,
                                   bool DesignState::*>;

// How a stored text stands in its target.
enum class SettingForm {
  Text,      // as it stands
  Number,    // read as a number
  TrueIf1,   // check: value 1 is True, any other False
  FalseIf0,  // flag: value 0 is False, any other True
};

// How what is typed into the dialog becomes the setting.
enum class SettingEntry : std::uint8_t {
  Plain,       // as typed
  YesNo,       // "N" for n, else "Y"
  YesNoKey,    // the same, and by the key itself
  Inches,      // with a millimetre twin
  Offset,      // the carriage offset, which stands on two tabs
  Delay,       // whole milliseconds, 500 at most
  Degrees,     // taken over from key releases alone
  SpeedClass,  // at once, with a twin
};

// A setting's line in the settings dialog.
struct SettingLine {
  enum Tab : std::uint8_t { General, TwoAxes, FourAxes, Speeds, Hidden };  // Hidden: for scripts alone

  std::string_view field;  // of the dialog; empty: the dialog does not hold the setting
  SettingEntry entry = SettingEntry::Plain;
  Tab tab = Hidden;
  int place = 0;    // among the lines of its tab
  char letter = 0;  // in the picture beside the lines; 0 if it has no place there
  std::string_view unit = {};
  std::string_view twin = {};  // the field in millimetres
  std::string_view sentence = {};
  std::string_view note = {};
};

struct Setting {
  std::string_view key;
  std::string_view fallback;  // the default
  SettingTarget target;       // nothing for a key that is read where it is needed
  SettingForm form = SettingForm::Text;
  bool atStart = false;         // ReadStoredSettings reads it
  int atExit = 0;               // place among those that SaveStoredSettings writes; 0: it does not
  bool emptyFallsBack = false;  // a stored empty text counts as missing
  std::string_view meaning;
  SettingLine line = {};
};

// In the order in which a start reads them.
std::span<const Setting> Settings();

// The key of a message that the operator can silence: "True" under it does so.
std::string MessageKey(int number);
bool IsMessageKey(std::string_view key);

// Fills the station's constants and choices from the store, in the order of the table. The calibration is
// read before: the mandrel's speed classes begin with its top speed.
void ReadStoredSettings(DesignState& s, const SettingsStore& store);

// Writes what a start reads back: the constants as they stand at exit.
void SaveStoredSettings(const DesignState& s, SettingsStore& store);

// Whether the operator has confirmed where the carriage stands at home; builds and work by hand ask for it.
bool IsCarriageOffsetConfirmed(const SettingsStore& store);
void ConfirmCarriageOffset(SettingsStore& store);

// Sets the unit ("Y" inches, any other text millimetres) with its captions, and stores it.
void SetUnits(DesignState& s, SettingsStore& store, std::string_view inches);

}  // namespace torvane
