// New, open, save, and the reopening of the last design.
#pragma once

#include "gcode/session.h"
#include "workbench/station/station.h"

namespace torvane {

// Of the designs, below the station's folder.
inline constexpr std::string_view kDesignFolder = "\\TV_Design_Files";

// Makes the folders of designs and programs where they are missing. `refused` hears of one that cannot be
// made, with its path and the reason.
void MakeStationFolders(
    Files& files, const std::function<void(const std::string& folder, const std::string& reason)>& refused);

// Name of the design in hand, as its line in the window says it; empty of a new one.
const std::string& DesignName(const DesignState& s);

// Puts the question whether a changed design is to be saved first; saves it on yes. False if that was
// refused: who would throw the design away then stops. A save that the operator cancels counts as answered.
bool AskToSaveFirst(Station& station);

// New: asks about unsaved changes, then blanks the design of both families.
void mnuNewFile_Click(Station& station);
// Open: asks about unsaved changes, then for a file of the family in use; nothing happens if it is cancelled.
void btnOPen_Click(Station& station);
// Save: asks for a name and saves under it; nothing happens if it is cancelled. False if it was refused.
bool btnSaveAS_Click(Station& station);

// Turns to a family and remembers the choice; no value of the design changes.
void ChooseFamily(Station& station, Family family);

enum class Opened : std::uint8_t {
  Whole,
  LacksData,  // the file is no design, and the one in hand is blank
  No,
};

// Opens a design file of the family in use, as an open does once its file is chosen. What it lacks is told
// in a message box.
Opened OpenDesign(Station& station, const std::string& path);

// Writes the design's file of the family in use; a name that ends in "tvd" is changed to "t2d" first. The
// bytes of the file. A former state that could not be kept beside it is told in a message box; a refusal is
// the caller's to tell.
Result<std::string> WriteDesign(Station& station, std::string& path);

// Writes the design under a name and, in the two-axis family, its program. A refusal is told in a message
// box, and the design keeps its name and its unsaved mark.
bool SaveDesign(Station& station, const std::string& path);

// Opens a design that the operator named beside the file dialog: a recent one, or one dropped on the window.
// Asks about unsaved changes first, and turns to the family of the file's ending. A file that is not there is
// told, and the design stays.
void OpenNamedDesign(Station& station, const std::string& path);

// Opens a recent design. One that is not there any more can be taken off the list, if the operator says so.
void OpenRecentDesign(Station& station, const std::string& path);

// Opens a sample as a new design: it has no name, so that it cannot be written over. Asks about unsaved
// changes first, and turns to the family of the file's ending.
void OpenSample(Station& station, const std::string& path);

// Writes the design's program; the front end may follow it and end it. What it lacks is told in a message
// box, but for the name of a design that has none.
Written WriteProgram(Station& station);
// Tells of Formed::angleUndefined.
void TellOfUndefinedAngle(Station& station);

std::span<const Operation> DesignOperations();
// Of the main window itself: family, splash, links, about box, and what opens the other windows.
std::span<const Operation> WindowOperations();

// Reopens at the start what was open at the last exit, if its file still lies in the design folder.
void OpenLastDesignerFileInUse(Station& station);

}  // namespace torvane
