// The station's numbered messages, all of them.
#pragma once

#include <string_view>

#include "workbench/station/station.h"

namespace torvane {

// How a message is shown.
struct MessageFlags {
  bool okOnly = false;  // a notice, else a yes-or-no question
  bool beep = false;
  bool offer = false;  // with the box by which the operator silences it for good
};

// A message under the number by which the store knows that it was silenced. Two messages may share one: a
// tick in either silences both.
struct StationMessage {
  int number;
  MessageFlags flags;
  std::string_view text;  // %1 stands for a value
};

namespace messages {

inline constexpr StationMessage kSaveFirst = {
    1,
    {.beep = true},
    "\r\n\r\nThis Torvane Design File has changed.\r\n Do you want to save the changes first ?"};
inline constexpr StationMessage kSpeedBeyondCapability = {
    5,
    {.okOnly = true},
    "\r\nSpeed desired may exceed speed capability of Torvane.\r\n"
    "Max Speed of Torvane is indicated at %1."};
inline constexpr StationMessage kMandrelBeyondMaximum = {
    6,
    {.okOnly = true},
    "Input Mandrel Speed exceeds Torvane\r\nMax RPM of %1.\r\n\r\nInput Slower Mandrel Speed."};
inline constexpr StationMessage kAdvanceBeyondCapability = {
    11,
    {.okOnly = true, .beep = true, .offer = true},
    "\r\n\r\nCarriage Speed may Exceed\r\n Winder Capability"};
inline constexpr StationMessage kSteepAngle = {
    12,
    {.okOnly = true, .offer = true},
    "\r\n\r\nWinding Angles Above 80 deg Should be Set\r\nto 90 deg to Hoop wind the part"};
inline constexpr StationMessage kHoopBehindHelix = {
    31,
    {.okOnly = true, .beep = true, .offer = true},
    "\r\nTorvane v%1 can not yet transition to hoop winding from \r\n"
    "helical winding. The previous layer will be paused first, \r\n"
    "then manually place filament, then hoop wind.\r\n"};
inline constexpr StationMessage kFlatAngle = {
    32,
    {.okOnly = true, .beep = true, .offer = true},
    "\r\nWARNING: 2-Axis Torvane May Have Trouble with\r\n"
    "Winding Angles less than 25 Degrees.\r\n\r\nProceed with Caution ..."};
inline constexpr StationMessage kValuesSeemTooHigh = {
    33,
    {.okOnly = true, .beep = true},
    "\r\n\r\nBlinking Red Values Seem Too High.\r\n Please Check Values ... "};
inline constexpr StationMessage kMeasureOffsetBeforeBuild = {
    33,
    {.okOnly = true, .beep = true, .offer = true},
    "\r\nBefore your first winding, you need to measure the carriage\r\n"
    "Z-offset distance. Click OK to open the settings page.\r\n"};
inline constexpr StationMessage kMeasureOffsetBeforeMoving = {
    33,
    {.okOnly = true, .beep = true, .offer = true},
    "\r\nBefore first winding, you need to measure the carriage Z-offset distance.\r\n"
    "Click OK to open the settings page.\r\n"};
inline constexpr StationMessage kMillimetres = {
    47,
    {.beep = true},
    "\r\nUnits are now in millimeters.\r\nInputs will be lost.\r\n Do you wat to proceed ?"};
inline constexpr StationMessage kInchBandInMillimetres = {
    47, {.beep = true}, "\r\nUnits are now in Millimeters. \r\nDo You Want to use inches instead ?\r\n"};
inline constexpr StationMessage kMillimetreBandInInches = {
    47, {.beep = true}, "\r\nUnits are now in INCHES. \r\nDo You Want to use millimeters instead ?\r\n"};
inline constexpr StationMessage kInches = {
    48, {.beep = true}, "\r\nUnits are now in inches.\r\nInputs will be lost.\r\n Do you wat to proceed ?"};
inline constexpr StationMessage kStopInsideOffset = {
    567,
    {.okOnly = true, .beep = true},
    "Carriage will slam Limit Switch.\r\n"
    "Enter a Z value greater than the Z home position.\r\n\r\n"
    "Go To Settings --> %1-Axis --> Red Highlight"};

}  // namespace messages

// Asks or warns the operator and leaves the answer in `gMsgAnswer`. A message that has been silenced is not
// shown and gives the last answer to any question; one that was shown gives False.
bool ShowMessageDialog(Station& station, const StationMessage& message, std::string_view value = {},
                       std::string_view hint = {});

}  // namespace torvane
