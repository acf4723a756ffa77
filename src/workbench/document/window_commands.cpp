// The main window itself: family, splash, links, about box, and what opens the other windows.
#include "persist/settings.h"
#include "workbench/dialog/links.h"
#include "workbench/dialog/machine_dialog.h"
#include "workbench/dialog/settings_dialog.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"
#include "workbench/station/recovery.h"
#include "workbench/station/station.h"

namespace torvane {

namespace {

constexpr double kLeastHeight = 9000;  // twips
constexpr double kLeastWidth = 12000;

void optX_Click(Station& station, int index) {
  ChooseFamily(station, index == 1 ? Family::FourAxes : Family::TwoAxes);
}
void mnu2Axis_Click(Station& station, int) { ChooseFamily(station, Family::TwoAxes); }
void mnu4Axis_Click(Station& station, int) { ChooseFamily(station, Family::FourAxes); }
void lbl2or4AX_Click(Station& station, int) {
  ChooseFamily(station, station.s.lbl2or4AX.text() == "4Ax" ? Family::TwoAxes : Family::FourAxes);
}

void tmrSplash_Tick(Station& station, int) {
  station.timers.Stop(station.timers.tmrSplash);
  station.s.frmSplash.Show(false);
  station.s.frmMain.Show(true);
  station.timers.Start(station.timers.tmrOffer);
}

void tmrOffer_Tick(Station& station, int) {
  station.timers.Stop(station.timers.tmrOffer);
  TakePlace(station);
  OfferRecovery(station);
}

void tmrStore_Tick(Station& station, int) {
  station.timers.Stop(station.timers.tmrStore);
  station.keptStore.Settle();
}

void chkDontShowVideoLinks_Click(Station& station, int) {
  DesignState& s = station.s;
  if (!s.chkDontShowVideoLinks.checked()) return;
  SaveSetting(station.platform.store, kSettings, "chkDontShowVideoLinks", "1");
  s.picVidLinks.Show(false);
}

void Video(Station& station, int index) { OpenWebLink(station, kVideoLinks[index == 1 ? 1 : 0]); }

// The status line can carry an address, which stands in its tool tip.
void lblStatusBar2_Click(Station& station, int) {
  const std::string& address = station.s.lblStatusBar2.tip();
  if (!address.empty()) OpenWebLink(station, address);
}

constexpr WindowField kAboutFields[] = {
    {"lblVersion", Kind::Caption},
    {"lblHelpURL", Kind::Control},
    {"lblCheckNewSoftware",
     Kind::Control,
     {"New software", "Opens the page of new versions.", FieldUnit::None, "Click Here"}},
    {"btnCancel", Kind::Control, {"Close", "Closes the window.", FieldUnit::None, "&Close"}},
};

class AboutBox : public Window {
 public:
  explicit AboutBox(Station& owner) : Window(owner, "frmAbout", kAboutFields) {
    field("lblVersion") = "v " + owner.s.gVersionNumber.text();
    field("lblHelpURL").SetCaption(kHelpLink);
  }

  bool Run(std::string_view control, Event event, int) override {
    if (event != Event::Click) return false;
    if (control == "lblHelpURL")
      OpenWebLink(station(), kHelpLink);
    else if (control == "lblCheckNewSoftware")
      OpenWebLink(station(), kNewSoftwareLink);
    else if (control == "btnCancel")
      station().windows.Close(*this);
    else
      return false;
    return true;
  }
};

void HoldLeast(const DesignState& s, Field& size, double least) {
  const Number held = s.Read(size.text());
  if (!holds(held >= least)) size = Number(least).plain();
}

void Form_Resize(Station& station, int) {
  DesignState& s = station.s;
  HoldLeast(s, s.meHeight, kLeastHeight);
  HoldLeast(s, s.meWidth, kLeastWidth);
  s.lblVersion = "Designer Version " + s.gVersionNumber.text();
}

void OpenSettingsAtLastTab(Station& station, int) {
  const std::string stored = GetSetting(station.platform.store, kSettings, "LastSettingsTab", "0");
  const Number tab = Whole(station.s.Read(stored));
  OpenSettings(station, holds(tab >= 0) && holds(tab <= 3) ? static_cast<int>(tab.value()) : 0);
}

// Works the schedule in use out anew.
void mnuRefresh_Click(Station& station, int) {
  station.Run(station.s.gShow4Axis ? "lblRefresh" : "btnReCalc", Event::Click);
}

template <int tab>
void OpenSettingsAt(Station& station, int) {
  OpenSettings(station, tab);
}

constexpr Operation kOperations[] = {
    {"optX", Event::Click, optX_Click},
    {"mnu2Axis", Event::Click, mnu2Axis_Click},
    {"mnu4Axis", Event::Click, mnu4Axis_Click},
    {"lbl2or4AX", Event::Click, lbl2or4AX_Click},
    {"lbl2D", Event::Click, [](Station&, int) {}},
    {"lblUnits", Event::Click, [](Station&, int) {}},
    {"tmrSplash", Event::Tick, tmrSplash_Tick},
    {"tmrOffer", Event::Tick, tmrOffer_Tick},
    {"chkDontShowVideoLinks", Event::Click, chkDontShowVideoLinks_Click},
    {"lblCommunity", Event::Click, [](Station& station, int) { OpenWebLink(station, kCommunityLink); }},
    {"lblVidLink", Event::Click, Video},
    {"picVidLink", Event::Click, Video},
    {"mnuVideo2AX",
     Event::Click,
     [](Station& station, int) { Video(station, 0); },
     {"2-Axis Software Overview", "Opens the film in the browser.", '2'}},
    {"mnuVideo4AX",
     Event::Click,
     [](Station& station, int) { Video(station, 1); },
     {"4-Axis Software Overview", "Opens the film in the browser.", '4'}},
    {"lblStatusBar2", Event::Click, lblStatusBar2_Click},
    {"frmSplash", Event::Click, [](Station& station, int) { OpenWebLink(station, kHomeLink); }},
    {"mnuAbout",
     Event::Click,
     [](Station& station, int) { station.windows.OpenOnce<AboutBox>(station); },
     {"About Torvane Designer", "Says which version this is, and where to find more.", 'A'}},
    {"mnuRefresh",
     Event::Click,
     mnuRefresh_Click,
     {"ReCalc All Rows", "Calculates every row afresh.", 'R', "F5"}},
    {"mnuQuit",
     Event::Click,
     [](Station& station, int) { Form_Unload(station); },
     {"Quit", "Ends the station; an unsaved design is asked for.", 'Q', "Ctrl+Q"}},
    {"Form", Event::Resize, Form_Resize},
    {"Command3",
     Event::Click,
     OpenSettingsAtLastTab,
     {"Settings", "Opens the settings where they were left."}},
    {"btnProperties", Event::Click, OpenSettingsAt<3>},
    {"mnuSpeeds",
     Event::Click,
     OpenSettingsAt<3>,
     {"Speeds...", "Opens the limits of the speed classes.", 'p'}},
    {"mnuMachine",
     Event::Click,
     [](Station& station, int) { OpenMachine(station); },
     {"Machine...", "Opens what the station knows of the machine.", 'M'}},
    {"tmrRecovery", Event::Tick, [](Station& station, int) { WriteRecovery(station); }},
    {"tmrStore", Event::Tick, tmrStore_Tick},
    {"mnuProperties", Event::Click, OpenSettingsAt<0>, {"Settings...", "Opens the station's settings.", 'S'}},
    {"Label10", Event::Click, OpenSettingsAt<1>},
    {"Label9", Event::Click, OpenSettingsAt<2>},
};

}  // namespace

std::span<const Operation> WindowOperations() { return kOperations; }

}  // namespace torvane
