#include "window/grid/design_cards.h"

#include <QKeyEvent>
#include <algorithm>

#include "look/text.h"
#include "text/number_text.h"

namespace torvane {

DesignCards::DesignCards(Station& station) : station_(station) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { ReadNext(); });
}

const std::optional<DesignCard>* DesignCards::Find(const std::string& path) {
  if (const auto found = cards_.find(path); found != cards_.end()) return &found->second;
  if (std::find(wanted_.begin(), wanted_.end(), path) == wanted_.end()) wanted_.push_back(path);
  if (!timer_.isActive()) timer_.start(0);
  return nullptr;
}

void DesignCards::Forget() {
  cards_.clear();
  wanted_.clear();
}

void DesignCards::ReadNext() {
  if (wanted_.empty()) return;
  const std::string path = wanted_.front();
  wanted_.pop_front();
  cards_[path] = ReadDesignCard(station_.platform, path);
  if (!wanted_.empty()) timer_.start(0);
  if (read) read();
}

QString KindOf(const DesignCard& card, const QString& between) {
  return (card.family == Family::TwoAxes ? QStringLiteral("2 axes") : QStringLiteral("4 axes")) + between +
         Shown(card.unit);
}

QString SentenceOf(const DesignCard& card, NumberSigns signs) {
  const auto figure = [signs](double value) { return Shown(NumberToText(signs, value)); };
  const QString layers =
      card.layers == 1 ? QStringLiteral("1 layer.") : QStringLiteral("%1 layers.").arg(card.layers);
  if (card.length <= 0) return layers;
  const bool taper = card.leftDiameter != card.rightDiameter, domes = card.leftCap > 0 || card.rightCap > 0;
  QString part = domes   ? QStringLiteral("A vessel of ")
                 : taper ? QStringLiteral("A taper of ")
                         : QStringLiteral("A tube of ");
  part += figure(card.leftDiameter);
  if (taper) part += QStringLiteral(" to ") + figure(card.rightDiameter);
  part += QStringLiteral(" by ") + figure(card.length) + QLatin1Char(' ') + Shown(card.unit);
  if (domes) part += QStringLiteral(" with hemispherical ends");
  return part + QStringLiteral(", ") + layers;
}

DesignButton::DesignButton(Desk desk, const QString& name,
                           std::function<void(Station&, const std::string& path)> opens, QWidget* parent)
    : QAbstractButton(parent), desk_(desk) {
  setObjectName(name);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  connect(this, &QAbstractButton::clicked, this, [this, opens = std::move(opens)] {
    const std::string path = path_;
    desk_.binder.Do([&] { opens(desk_.station, path); });
  });
}

void DesignButton::ShowDesign(const std::string& path, const std::optional<DesignCard>* card) {
  path_ = path;
  card_ = card == nullptr ? std::nullopt : *card;
  update();
}

void DesignButton::Say(const QString& spoken, const QString& sentence, const QString& head) {
  setAccessibleName(spoken);
  setAccessibleDescription(sentence);
  setStatusTip(sentence);
  setToolTip(PlainTip(head + QLatin1Char('\n') + sentence));
}

void DesignButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

}  // namespace torvane
