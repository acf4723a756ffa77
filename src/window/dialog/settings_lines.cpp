#include "window/dialog/settings_lines.h"

namespace torvane {

namespace {

constexpr SettingLine YesNo(int tab, const char* sentence, const char* field) {
  return {tab, 0, sentence, "", field, "", "", "", true};
}

// What stands over the fields and over their twins.
constexpr SettingLine Heads(int tab, char letter, const char* overFields, const char* overTwins) {
  SettingLine line{tab, letter, "", "", "", "", "", ""};
  line.head = overFields;
  line.twinHead = overTwins;
  return line;
}

constexpr SettingLine kLines[] = {
    {0, 'A', "When Carriage is Moving to Activate the Limit Switch, Move at this Speed", "",
     "txtLimitSwitchApproachSpeed", "in/s", "txtLimitSwitchApproachSpeedMM", "mm/s"},
    {0, 'B',
     "After Carriage Movement Stops after a Pre-Wrap Pass, Rotate the Mandrel by this Many Degrees before "
     "Stopping Mandrel",
     "", "txtMandrelAdvanceAfterPreWrapCarriageStop", "deg", "", ""},
    YesNo(0, "Allow Carriage to Move to Full Length of Part (Y/N) (Ignore Offsets During Pre-Wrap)",
          "txtPreWrapFullLengthYN"),
    {0, 'C',
     "After Carriage Movement Stops after a Heat Shrink Tape Pass, Rotate the Mandrel by this Many Degrees "
     "before Stopping Mandrel",
     "", "txtMandrelAdvanceAfterHSTCarriageStop", "deg", "", ""},
    YesNo(0, "After Heat Gun Process Completes, Just Keep Going Until Torvane is Stopped Manually (Y/N)",
          "txtHeatGunJustKeepGoingYN"),

    {1, 'A',
     "Z-distance from delivery head mid point to closest face of right mandrel post when carriage activates "
     "the limit switch (home position). Measure all Z distances from this right mandrel post reference "
     "point.",
     "(Default for Model #2T-23 is between 2-3 inches inches depending on exact location of limit switch)",
     "Text3", "in", "Text2", "mm", false, false, true},
    {1, 0,
     "Add This Many Additional Passes to Each Layer (1 Pass Includes One Forward Pass and One Back Pass). "
     "Does Not Include Hoop Winding Layers.",
     "", "txtAddPasses", "", "", ""},
    {1, 'B', "After a Layer Completes Winding, Rotate Mandrel by this many Degrees Before Starting new Layer",
     "", "txtMandrelRotateAfterLayerCompletion", "deg", "", ""},
    YesNo(1, "On the first pass of a layer, wrap an extra 360 degrees at the far end (Y/N)",
          "txtAddExtra360AtFarEndYN"),
    YesNo(1, "Use proportional filament spacing to match 360 deg. (Y/N)",
          "txtUseProportionalFilamentSpacingYN"),
    YesNo(1, "Add Extra 360 deg. to every pass (Y/N)", "txt2AXAdd360YN"),

    {2, 'A',
     "Z-distance from delivery head mid point to closest edge of mandrel post when carriage activates the "
     "limit switch (home position). Measure all Z distances from this reference point.",
     "(Default for Model #4T-23 is 1.875 inches or 47.625mm)", "txtCarriageOffsetFromRMPFace", "in",
     "txtCarriageOffsetFromRMPFaceMM", "mm", false, false, true},
    {2, 'B', "Total width (including bolts) of delivery head when delivery head is horizontal",
     "(Default for Model #4T-23 is 2.00 inches or 50.8mm)", "txtDHStructureWidth", "in",
     "txtDHStructureWidthMM", "mm"},
    {2, 'C', "Distance from delivery head to mandrel central axis when delivery head fully retracted",
     "(Default for Model #4T-23 is 4.625 inches or 117.50 mm)", "txtDHYtoMandrelCenter", "in",
     "txtDHYtoMandrelCenterMM", "mm"},
    {2, 0, "Do not list winding patterns with winding angles greater than this many degrees", "",
     "txtNoListPatternDegrees", "deg", "", ""},
    {2, 0,
     "Delay time in milliseconds (1/1000 s) between C, DHL and DHR movement completion and Mandrel  movement "
     "completion (applies to G4, G5 and G6 movements)",
     "", "txtDelayTimeInG456ToWaitForMandrelinMS", "ms", "", ""},
    YesNo(2,
          "When hoop winding, pause winder before each hoop layer to ensure proper transition from helical "
          "layer to hoop layer",
          "txtPauseBeforeHoop"),
    YesNo(2, "On the first pass of the a 3-Axis winding layer, wrap an extra 360 degrees at each end (Y/N)",
          "txt3AX1stPass360"),

    Heads(3, 'A', "Carriage Speed Limit (in/s)", "Carriage Speed Limit (mm/s)"),
    {3, 0, "slow", "", "txtcSpeed(0)", "in/s", "txtcSpeedmm(0)", "mm/s"},
    {3, 0, "med", "", "txtcSpeed(1)", "in/s", "txtcSpeedmm(1)", "mm/s"},
    {3, 0, "fast", "", "txtcSpeed(2)", "in/s", "txtcSpeedmm(2)", "mm/s"},
    {3, 0, "The machine's own limit", "", "lblcMaxSpeed", "in/s", "lblcMaxSpeedMM", "mm/s", false, true},
    Heads(3, 'B', "Mandrel RPM Limit (1/min)", "Mandrel RPM Limit (1/min)"),
    {3, 0, "slow", "", "txtmSpeed(0)", "1/min", "txtmSpeedmm(0)", "1/min"},
    {3, 0, "med", "", "txtmSpeed(1)", "1/min", "txtmSpeedmm(1)", "1/min"},
    {3, 0, "fast", "", "txtmSpeed(2)", "1/min", "txtmSpeedmm(2)", "1/min"},
    {3, 0, "The machine's own limit", "", "lblmMaxRPM", "1/min", "lblmMaxRPMMM", "1/min", false, true},
};

}  // namespace

std::span<const SettingLine> SettingLines() { return kLines; }

}  // namespace torvane
