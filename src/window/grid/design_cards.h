// What cards of designs show: read one after the other between the operator's doings, and kept.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "handoff/design_card.h"
#include "workbench/station/station.h"

namespace torvane {

class DesignCards : public QObject {
 public:
  explicit DesignCards(Station& station);

  // Null as long as it has not been read, which this sets off; nothing in it if there is no such design.
  const std::optional<DesignCard>* Find(const std::string& path);
  // The files may have changed: what is asked for next is read again.
  void Forget();
  // Told when another one has been read.
  std::function<void()> read;

 private:
  void ReadNext();

  Station& station_;
  std::map<std::string, std::optional<DesignCard>> cards_;
  std::deque<std::string> wanted_;
  QTimer timer_;
};

// "2 axes, in", "A tube of 4 by 24 in, 6 layers."
QString KindOf(const DesignCard& card, const QString& between);
QString SentenceOf(const DesignCard& card, NumberSigns signs);

}  // namespace torvane
