#include "workbench/picture_file.h"

#include "design/text.h"

namespace torvane {

std::string PictureTitle(const DesignState& s, std::string_view layer, std::string_view pattern) {
  return s.gFileName.text() + ", layer " + std::string(layer) + ": " + std::string(pattern);
}

void SavePicture(const Station& station, std::string_view layer, std::string_view extension,
                 std::string_view bytes) {
  const DesignState& s = station.s;
  const Platform& platform = station.platform;
  const std::string ending = "." + std::string(extension);
  const std::string design = s.gFileName.empty() ? "Pattern" : s.gFileName.text();
  const std::string name = design.substr(0, design.rfind('.')) + "-layer-" + std::string(layer) + ending;
  const auto path = platform.fileDialog.AskSave("Pictures (*" + ending + ")|*" + ending + "|",
                                                BeforeLastBackslash(s.gFilePath.text()), name);
  if (!path) return;
  const Outcome written = platform.files.WriteWhole(*path, {bytes});
  if (!written)
    platform.messageBox.Show("Torvane Designer", "The picture was not saved: " + written.reason(),
                             BoxIcon::Stop);
}

}  // namespace torvane
