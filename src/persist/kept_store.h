// The computer's store, in front of which nothing is lost while it cannot be written. One that could not be
// read at the start is left alone: the station has begun with the defaults, and what it would store at its
// end must not take the place of what stands there.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/settings_store.h"

namespace torvane {

class KeptStore : public SettingsStore {
 public:
  // `under` must outlive it.
  explicit KeptStore(SettingsStore& under);
  ~KeptStore() override { Settle(); }
  KeptStore(const KeptStore&) = delete;
  KeptStore& operator=(const KeptStore&) = delete;

  // A value that was refused reads as it was written here.
  std::optional<std::string> Read(std::string_view section, std::string_view key) const override;
  // Refused as the store under it refuses, or where that is left alone. The value is kept then; it is offered
  // again behind the next write that succeeds.
  Outcome Write(std::string_view section, std::string_view key, std::string_view value) override;
  Outcome Readable() const override { return leftAlone_ ? Refusal{refusal_} : under_.Readable(); }
  Outcome WriteAll(const std::vector<Entry>& entries) override;
  // For what no operator waits for: it reads as written at once, and is in the store with the next write, the
  // next Settle or this object's end.
  void WriteLater(std::string_view section, std::string_view key, std::string_view value);
  // Offers the store all that is kept.
  void Settle();
  // The store's own, with what is kept in their place or behind them.
  std::vector<Entry> All() const override;

  // Why a write was refused, once; nothing until all that is kept has been written and another is refused.
  std::optional<std::string> TakeRefusal();
  // For the whole life of the station.
  bool LeftAlone() const { return leftAlone_; }

 private:
  using Name = std::pair<std::string, std::string>;

  SettingsStore& under_;
  std::map<Name, std::string> kept_;
  std::string refusal_;
  bool leftAlone_ = false;
  bool refused_ = false;
  bool told_ = false;
};

}  // namespace torvane
