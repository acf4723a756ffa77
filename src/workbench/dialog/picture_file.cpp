#include "workbench/dialog/picture_file.h"

#include "text/text.h"

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
  auto path = platform.fileDialog.AskSave("Pictures (*" + ending + ")|*" + ending + "|",
                                          BeforeLastBackslash(s.gFilePath.text()), name);
  if (!path) return;
  if (!UpperCase(*path).ends_with(UpperCase(ending))) *path += ending;
  if (platform.files.Exists(*path)) {
    // No copy is kept of a picture.
    Message question;
    question.text =
        "\r\nThere is such a picture already:\r\n" + *path + "\r\n\r\nDo you want to replace it ?";
    if (!platform.messageDialog.Ask(question)) return;
  }
  const Outcome written = platform.files.WriteWhole(*path, {bytes});
  if (!written)
    platform.messageBox.Show("Torvane Designer", "The picture was not saved: " + written.reason(),
                             BoxIcon::Stop);
}

}  // namespace torvane
