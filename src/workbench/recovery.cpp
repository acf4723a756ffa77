#include "workbench/recovery.h"

#include "persist/recovery_text.h"

namespace torvane {

namespace {

std::string PathOf(const Station& station) {
  return station.platform.files.ProgramFolder() + std::string(kRecoveryFile);
}

}  // namespace

void FollowWithRecovery(Station& station, bool changed) {
  if (station.ended) return;
  if (!station.s.gDirty)
    DropRecovery(station);
  else if (changed && !station.tmrRecovery.due)
    station.StartTimer(station.tmrRecovery);
}

bool WriteRecovery(Station& station) {
  // Before its offer the copy of the former station must not be lost.
  if (!station.recovery.offered) return false;
  station.StopTimer(station.tmrRecovery);
  if (!station.s.gDirty) return true;
  const Outcome written = station.platform.files.WriteWhole(PathOf(station), {RecoveryText(station.s)});
  station.recovery.refusal = written ? "" : written.reason();
  if (written) station.recovery.ours = true;
  return bool(written);
}

void OfferRecovery(Station& station) {
  station.recovery.offered = true;
  const std::string path = PathOf(station);
  if (!station.platform.files.Exists(path)) return;
  const Result<std::string> text = station.platform.files.ReadWhole(path);
  if (!text) return;
  const std::optional<RecoveredDesign> found = ReadRecovery(text.value());
  if (!found) return;
  const std::string name = found->fileName.empty() ? "A design without a file" : found->fileName;
  Message question;
  question.text =
      "\r\n" + name +
      " was not saved when the station ended.\r\nDo you want to bring it back as it was ?\r\n\r\n" +
      "With No it is offered again at the next start,\r\nuntil another design takes its place.";
  if (!station.platform.messageDialog.Ask(question)) return;
  Restore(station.s, *found);
  station.s.gDirty = true;
  station.recovery.ours = true;
  station.ForgetHistory();
}

void DropRecovery(Station& station) {
  station.StopTimer(station.tmrRecovery);
  if (!station.recovery.ours) return;
  station.platform.files.Remove(PathOf(station));
  station.recovery.ours = false;
}

}  // namespace torvane
