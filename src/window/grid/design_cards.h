// What cards of designs show: read one after the other between the operator's doings, and kept.
#pragma once

#include <QAbstractButton>
#include <QObject>
#include <QString>
#include <QTimer>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "handoff/design_card.h"
#include "window/desk/binder.h"

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

// A design that opens at a press, as a card or a row of the start card.
class DesignButton : public QAbstractButton {
 public:
  // `opens` gets the path of the design that is shown.
  DesignButton(Desk desk, const QString& name, std::function<void(Station&, const std::string& path)> opens,
               QWidget* parent);

 protected:
  // `card` is null while it is not read.
  void ShowDesign(const std::string& path, const std::optional<DesignCard>* card);
  // What a screen reader, the status line and the tip say; the tip begins with `head`.
  void Say(const QString& spoken, const QString& sentence, const QString& head);
  void keyPressEvent(QKeyEvent* event) override;

  Desk desk_;
  std::optional<DesignCard> card_;

 private:
  std::string path_;
};

}  // namespace torvane
