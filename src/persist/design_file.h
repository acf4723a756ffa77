// What the design files of both families share.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "design/state.h"
#include "persist/tagged_text.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/settings_store.h"

namespace torvane {

// A design on its way to a file, and the time of the save.
struct DesignWriter {
  const DesignState& s;
  std::chrono::local_seconds now;
};

// Comments at the head of a file; the version text and the file type stand in the first.
void WriteHead(TaggedText& text, const DesignWriter& writer, std::string_view version, std::string_view type);
void WriteLayersHead(TaggedText& text);

MaybeText DecimalCommaOf(const DesignWriter& writer);
MaybeText FileNameOf(const DesignWriter& writer);
MaybeText VersionOf(const DesignWriter& writer);
MaybeText DateOf(const DesignWriter& writer);
MaybeText UnitsOf(const DesignWriter& writer);

// The tags of the unit and of the file's decimal sign.
void ReadUnits(DesignState& s, SettingsStore& store, const std::string& value);
void ReadDecimalComma(DesignState& s, std::string_view value);

// Takes a file's name into the state of a blanked design and reads its text. A file that does not exist
// gives an empty text and sets the path alone; one that cannot be read is refused.
Result<std::string> BeginOpen(DesignState& s, const Files& files, const std::string& fileName);

// Puts a design file in the place of the former one, of which one copy is kept beside it: the same name with
// "~" behind it. A copy that cannot be made is told in a message box and stops nothing; where the room for it
// is what the design itself lacks, the design goes first.
Outcome ReplaceDesign(const Platform& platform, const std::string& fileName, const std::string& text);

// The band fields of a panel (0 two axes, 1 four) from the file's values, which are in the design's unit.
void FillBand(DesignState& s, int panel);

}  // namespace torvane
