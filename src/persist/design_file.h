// What the design files of both families share.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "design/state.h"
#include "design/units.h"
#include "persist/tagged_text.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/settings_store.h"
#include "text/text.h"

namespace torvane {

// A design on its way to a file, and the time of the save.
struct DesignWriter {
  const DesignState& s;
  std::chrono::local_seconds now;
};

// Comments at the head of a file; the version text and the file type stand in the first.
void WriteHead(TaggedText& text, const DesignWriter& writer, std::string_view version, std::string_view type);
// The comment above the layers.
void WriteLayersHead(TaggedText& text);

// What the tags that both files have are written with.
MaybeText DecimalCommaOf(const DesignWriter& writer);
MaybeText FileNameOf(const DesignWriter& writer);
MaybeText VersionOf(const DesignWriter& writer);
MaybeText DateOf(const DesignWriter& writer);
MaybeText UnitsOf(const DesignWriter& writer);

// A field as it stands, and without the blanks at its ends.
template <Field Fields::*field>
MaybeText TextOfField(const DesignWriter& writer) {
  return {true, (writer.s.*field).text()};
}
template <Field Fields::*field>
MaybeText Trimmed(const DesignWriter& writer) {
  return {true, std::string(Trim((writer.s.*field).text()))};
}
template <FieldArray Fields::*array, int index>
MaybeText TrimmedAt(const DesignWriter& writer) {
  return {true, std::string(Trim((writer.s.*array)(index).text()))};
}
// A field of inches in the design's unit.
template <FieldArray Fields::*array, int index>
MaybeText InDesignUnits(const DesignWriter& writer) {
  return FormatForUnits(writer.s, (writer.s.*array)(index), false);
}

// What the tags of the unit and of the file's decimal sign set.
void ReadUnits(DesignState& s, SettingsStore& store, const std::string& value);
void ReadDecimalComma(DesignState& s, std::string_view value);

// What a tag does when it is read. A family's reader has the design in `s` and the computer in `platform`.
template <Field Fields::*field, class Reader>
void Take(Reader& reader, const std::string& value) {
  reader.s.*field = value;
}
template <class Reader>
void PassBy(Reader&, const std::string&) {}
template <class Reader>
void TakeUnits(Reader& reader, const std::string& value) {
  ReadUnits(reader.s, reader.platform.store, value);
}
template <class Reader>
void TakeDecimalComma(Reader& reader, const std::string& value) {
  ReadDecimalComma(reader.s, value);
}

// Reads a line by a family's table of tags; which one it was, null for a line of none. A tag's reader is
// given the value in lower case, whose fields stand in `gTagFields`.
template <class Tag, std::size_t count, class Reader>
const Tag* ReadTagLine(const Tag (&tags)[count], Reader& reader, std::string_view line) {
  const std::string_view name = TagOf(line);
  for (const Tag& tag : tags) {
    if (!IsTag(name, tag.name)) continue;
    tag.read(reader, GetTagValue(reader.s, LowerCase(line)));
    return &tag;
  }
  return nullptr;
}

// Writes a family's tags that have a writer, in their order. The section of the layers begins with their
// number.
template <class Tag, std::size_t count>
void WriteTags(TaggedText& text, const Tag (&tags)[count], const DesignWriter& writer) {
  for (const Tag& tag : tags) {
    if (tag.name == "Number_of_Layers") WriteLayersHead(text);
    if (tag.write != nullptr) text.Tag(tag.name, tag.write(writer));
  }
}

// Takes a file's name into the state of a blanked design and reads its text. A file that does not exist
// gives an empty text and sets the path alone; one that cannot be read, or is larger than a design can be, is
// refused with its name.
Result<std::string> BeginOpen(DesignState& s, const Files& files, const std::string& fileName);

// What a save has left on the disk.
struct SavedDesign {
  std::string bytes;       // of the file
  std::string formerCopy;  // the file of the state before this save
  std::string copyRefusal =
      {};  // why that copy could not be kept; empty if it was, or there was nothing to keep
};

// Puts a design file in the place of the former one, of which one copy is kept beside it: the same name with
// "~" behind it. A copy that cannot be made stops nothing; where the room for it is what the design itself
// lacks, the design goes first.
Result<SavedDesign> ReplaceDesign(Files& files, const std::string& fileName, const std::string& text);

// What reading a design file came to.
enum class DesignRead : std::uint8_t {
  Whole,
  LacksData,  // too few tags for a design: it stays blank
};

// The band fields of a panel (0 two axes, 1 four) from the file's values, which are in the design's unit.
void FillBand(DesignState& s, int panel);

}  // namespace torvane
