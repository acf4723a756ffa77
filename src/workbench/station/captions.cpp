#include "workbench/station/captions.h"

#include "design/catalogue.h"

namespace torvane {

namespace {

struct Caption {
  const char* name;
  const char* caption;
};

constexpr Caption kCaptions[] = {
    {"optX(0)", "2Ax"},
    {"optX(1)", "4Ax"},
    {"optType(0)", "4-Axis Flat Ends"},
    {"optType(1)", "4-Axis Hemi Ends"},
    {"optType(2)", "3-Axis No Wrap"},
    {"lblNumberOfLayers(0)", "Number of Layers"},
    {"lblNumberOfLayers(1)", "Number of Layers"},
    {"mnuWhatsThis", "Whats This ?"},
    {"mnuCopy", "Copy Row"},
    {"mnuPaste", "Paste Row"},
    {"mnuClearRow", "Clear Row"},
    {"mnuDeleteRow", "Delete Row"},
    {"mnuReCalcSpeeds", "ReCalcThis Row"},
    {"mnuRecalcAllRows", "ReCalc All Rows"},
    {"btnReCalc", "ReCalc All Rows"},
    {"chkPreWrap1", "Pre-Wrap #1"},
    {"chkPreWrap2", "Pre-Wrap #2"},
    {"chkWindingSchedule", "Winding"},
    {"chkPromptForHST", "Shrink Tape"},
    {"chkHeatGunApp", "Heat Gun"},
    {"chkNotify1", "Send Text Message When Complete"},
    {"lblBuild", "Build"},
    {"mnuBeginWinding", "Begin Build Process w/G-Code"},
    {"mnuManually", "Operate Torvane Manually"},
    {"mnuLaunchExecutor", "Launch Executor w/o G-Code"},
    {"Command2", "View G-Code"},
    {"lblManualOperation", "Manual"},
    {"chkDontShowVideoLinks", "Don't Show These Links"},
    {"lblCommunity", "Post some pics of your stuff at the Torvane Community"},
    {"lblVidLink(0)", "2-Axis Software Overview"},
    {"lblVidLink(1)", "4-Axis Software Overview"},
    {"Label18", "Click to Enlarge"},
};

}  // namespace

void SetCaptions(DesignState& s) {
  for (const auto& [name, caption] : kCaptions) FindField(s, name)->SetCaption(caption);
}

}  // namespace torvane
