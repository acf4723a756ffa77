// New, open, save, and the reopening of the last design.
#pragma once

#include "workbench/station.h"

namespace torvane {

void mnuNewFile_Click(Station& station);
void btnOPen_Click(Station& station);
void btnSaveAS_Click(Station& station);

// Opens a design file of the family in use, as an open does once its file is chosen. A refusal is told in a
// message box; false then.
bool OpenDesign(Station& station, const std::string& path);

// Writes the design under a name and, in the two-axis family, its program. A refusal is told in a message
// box, and the design keeps its name and its unsaved mark.
bool SaveDesign(Station& station, const std::string& path);

// Reopens at the start what was open at the last exit, if its file still lies in the design folder.
void OpenLastDesignerFileInUse(Station& station);

inline constexpr std::string_view kDesignFolder = "\\TV_Design_Files";

}  // namespace torvane
