#include "workbench/station/recovery.h"

#include "persist/recovery_text.h"

namespace torvane {

namespace {

// More stations in one folder than anybody starts; how far a search goes.
constexpr int kMostStations = 50;

std::string Numbered(const std::string& name, int number, const std::string& ending) {
  return "\\" + name + (number == 1 ? "" : "-" + std::to_string(number)) + ending;
}

std::string PathOf(const Station& station) {
  return station.platform.files.ProgramFolder() + RecoveryFile(station.recovery.number);
}

// Whether another station of a number runs; meanwhile no other takes the number while `lock` lives.
bool Runs(Files& files, int number, std::shared_ptr<void>& lock) {
  const auto taken = files.Lock(files.ProgramFolder() + LockFile(number));
  if (!taken) return false;
  lock = taken.value();
  return lock == nullptr;
}

}  // namespace

std::string RecoveryFile(int number) { return Numbered("TV_RECOVERY", number, ".TVR"); }

std::string LockFile(int number) { return Numbered("TV_STATION", number, ".LCK"); }

void TakePlace(Station& station) {
  Files& files = station.platform.files;
  Recovery& own = station.recovery;
  own.number = 1;
  while (Runs(files, own.number, own.lock)) ++own.number;
  bool another = own.number > 1;
  for (int number = own.number + 1; !another && number <= kMostStations; ++number) {
    std::shared_ptr<void> lock;
    another = files.Exists(files.ProgramFolder() + LockFile(number)) && Runs(files, number, lock);
  }
  if (another)
    station.platform.messageBox.Show(
        "Torvane Designer",
        "Another station runs in this folder. Each keeps its own unsaved design, but "
        "both write the same\r\nprograms and the same trace: work on different designs.",
        BoxIcon::Information);
}

void FollowWithRecovery(Station& station, bool changed) {
  if (station.ended) return;
  if (!station.s.gDirty)
    DropRecovery(station);
  else if (changed && !station.timers.tmrRecovery.due)
    station.timers.Start(station.timers.tmrRecovery);
}

bool WriteRecovery(Station& station) {
  // Before its offer the copy of the former station must not be lost.
  if (!station.recovery.offered) return false;
  station.timers.Stop(station.timers.tmrRecovery);
  if (!station.s.gDirty) return true;
  const Outcome written = station.platform.files.WriteWhole(PathOf(station), {RecoveryText(station.s)});
  station.recovery.refusal = written ? "" : written.reason();
  if (written) station.recovery.ours = true;
  return bool(written);
}

namespace {

enum class Wish : std::uint8_t { Back, Later, ThrowAway };

Wish Offer(Station& station, const RecoveredDesign& found) {
  const std::string name = found.fileName.empty() ? "A design without a file" : found.fileName;
  Message question;
  question.text =
      "\r\n" + name +
      " was not saved when the station ended.\r\nDo you want to bring it back as it was ?\r\n\r\n" +
      "With No it is offered again at the next start,\r\nuntil another design takes its place.";
  bool thrownAway = false;
  question.offer = true;
  question.tick = "Throw it away for good";
  question.ticked = [&thrownAway](bool on) { thrownAway = on; };
  if (!station.platform.messageDialog.Ask(question)) return thrownAway ? Wish::ThrowAway : Wish::Later;
  Restore(station.s, found);
  station.s.gDirty = true;
  station.ForgetHistory();
  return Wish::Back;
}

}  // namespace

void OfferRecovery(Station& station) {
  Files& files = station.platform.files;
  station.recovery.offered = true;
  const std::string own = PathOf(station);
  // No station below the own number has ended: that would be the own one.
  for (int number = station.recovery.number; number <= kMostStations; ++number) {
    std::string path = files.ProgramFolder() + RecoveryFile(number);
    std::shared_ptr<void> lock;
    const bool another = number != station.recovery.number;
    if (!files.Exists(path) || (another && Runs(files, number, lock))) continue;
    const Result<std::string> text = files.ReadAtMost(path, kLargestText);
    if (!text) {
      station.platform.messageBox.Show(
          "Torvane Designer",
          "The copy of an unsaved design cannot be read:\r\n" + path + "\r\n" + text.reason(), BoxIcon::Stop);
      continue;
    }
    const std::optional<RecoveredDesign> found = ReadRecovery(text.value());
    if (!found) continue;
    const auto moves = [&] { return files.WriteWhole(own, {text.value()}) && files.Remove(path); };
    // In the own place another unsaved design can take its place some day.
    const bool moved = another && !files.Exists(own) && moves();
    const Wish wish = Offer(station, *found);
    if (wish == Wish::Later) continue;
    if (wish == Wish::ThrowAway) {
      files.Remove(moved ? own : path);
      continue;
    }
    station.recovery.ours = !another || moved || moves();
    return;
  }
}

void DropRecovery(Station& station) {
  station.timers.Stop(station.timers.tmrRecovery);
  if (!station.recovery.ours) return;
  station.platform.files.Remove(PathOf(station));
  station.recovery.ours = false;
}

}  // namespace torvane
