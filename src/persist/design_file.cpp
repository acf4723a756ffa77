#include "persist/design_file.h"

#include "design/masks.h"
#include "design/units.h"
#include "persist/settings.h"
#include "text/text.h"

namespace torvane {

void WriteHead(TaggedText& text, const DesignWriter& writer, std::string_view version,
               std::string_view type) {
  text.Comment("TORVANE DESIGN FILE FORMAT VERSION #" + std::string(version) + " = " + std::string(type) +
               " EXETNSION");
  text.Comment("TORVANE DESIGN FILE-NAME = " + writer.s.gFileName.text());
  text.EmptyLine();
}

void WriteLayersHead(TaggedText& text) {
  text.EmptyLine();
  text.Comment("LAYER PROPERTIES");
}

MaybeText DecimalCommaOf(const DesignWriter& writer) { return {true, writer.s.gDecimalComma ? "YES" : "NO"}; }

MaybeText FileNameOf(const DesignWriter& writer) { return {true, writer.s.gFileName.text()}; }

MaybeText VersionOf(const DesignWriter& writer) {
  return FormatForUnits(writer.s, writer.s.gVersionNumber, true);
}

MaybeText DateOf(const DesignWriter& writer) {
  return {true, FormatDateText(writer.s.signs, writer.now, DateForm::DayAndSeconds)};
}

MaybeText UnitsOf(const DesignWriter& writer) { return {true, writer.s.gUnits.text()}; }

void ReadUnits(DesignState& s, SettingsStore& store, const std::string& value) {
  s.gUnits = value;
  SetUnits(s, store, value == "mm" ? "N" : "Y");
}

void ReadDecimalComma(DesignState& s, std::string_view value) { s.gFileDecimalComma = value == "yes"; }

Result<std::string> BeginOpen(DesignState& s, const Files& files, const std::string& fileName) {
  s.mnuINCH = true;
  s.mnuMM = false;
  s.gFilePath = fileName;
  if (!files.Exists(fileName)) return std::string();
  s.gFileName = BehindLastBackslash(fileName);
  s.frmMain.SetCaption("Torvane Designer ");
  s.lblStatusBar1 = "File Name: " + s.gFileName.text();
  Result<std::string> text = files.ReadAtMost(fileName, kLargestText);
  if (!text) return Refusal{fileName + "\r\n" + text.reason()};
  return text;
}

Result<SavedDesign> ReplaceDesign(Files& files, const std::string& fileName, const std::string& text) {
  const std::string copy = fileName + "~";
  if (!files.Exists(fileName)) {
    const Outcome written = files.WriteWhole(fileName, {text});
    if (!written) return Refusal{written.reason()};
    return SavedDesign{text, copy};
  }
  Outcome kept = files.Copy(fileName, copy);
  Outcome written = files.WriteWhole(fileName, {text});
  if (!written && kept) {
    const Result<std::string> standing = files.ReadWhole(fileName), former = files.ReadWhole(copy);
    // The copy goes only if the file it was made of is still whole.
    if (standing && former && standing.value() == former.value() && files.Remove(copy)) {
      kept = Refusal{written.reason()};
      written = files.WriteWhole(fileName, {text});
    }
  }
  if (!written) return Refusal{written.reason()};
  return SavedDesign{text, copy, kept ? std::string() : kept.reason()};
}

void FillBand(DesignState& s, int panel) {
  if (s.InInches()) {
    s.txtBandWidth(panel) = s.Band_Width.through(mask::kBandWidth);
    s.txtBandThickness(panel) = s.Band_Thickness.through(mask::kBandThickness);
    // The four-axis twins follow their inch fields by themselves.
    if (panel != 0) return;
    s.txtBandWidthMM(panel) = (number(s.Band_Width) * kMillimetresPerInch).as(mask::kBandWidth);
    s.txtBandThicknessMM(panel) = (number(s.Band_Thickness) * kMillimetresPerInch).as(mask::kBandThickness);
    return;
  }
  // The inch fields mirror themselves into their twins, and their changes put inches into the working copies:
  // the file's own values go into the millimetre fields last.
  const std::string width = s.Band_Width.text();
  const std::string thickness = s.Band_Thickness.text();
  s.txtBandWidth(panel) = (s.Read(width) / kMillimetresPerInch).as(mask::kBandWidth);
  s.txtBandThickness(panel) = (s.Read(thickness) / kMillimetresPerInch).as(mask::kBandThickness);
  s.txtBandWidthMM(panel) = FormatNumberText(s.signs, width, mask::kBandWidth);
  s.txtBandThicknessMM(panel) = FormatNumberText(s.signs, thickness, mask::kBandThickness);
}

}  // namespace torvane
