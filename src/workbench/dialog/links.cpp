#include "workbench/dialog/links.h"

#include "text/text.h"

namespace torvane {

namespace {

// One picture and nothing else.
class PictureDialog : public Window {
 public:
  explicit PictureDialog(Station& owner) : Window(owner, "frmBigPic", {}) {}
  bool Run(std::string_view, Event, int) override { return false; }
};

}  // namespace

void OpenWebLink(Station& station, std::string_view url) {
  const bool complete = EqualNoCase(url.substr(0, 4), "http");
  station.platform.launcher.OpenLink(complete ? std::string(url) : "http://" + std::string(url));
}

void OpenPicture(Station& station) { station.windows.OpenOnce<PictureDialog>(station); }

}  // namespace torvane
