#include "window/grid/sample_shelf.h"

#include <algorithm>

#include "look/paint.h"
#include "look/text.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/part/part_thumbnail.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

constexpr int kCardWidth = 168, kCardHeight = 104, kLowCardHeight = 34, kGap = 8, kShelfHead = 28,
              kPicture = 54;
constexpr int kMostCards = 24;

}  // namespace

// A sample: its part, its name, how it is wound and how long that takes.
class SampleCard : public DesignButton {
 public:
  SampleCard(Desk desk, int place, QWidget* parent)
      : DesignButton(desk, QStringLiteral("sample%1").arg(place), OpenSample, parent) {
    setAccessibleName(QStringLiteral("Sample"));
    hide();
  }

  // `card` is null while it is not read.
  void Show(const std::string& path, const std::string& name, const std::optional<DesignCard>* card) {
    ShowDesign(path, card);
    setText(Shown(name.substr(0, name.rfind('.'))));
    QString sentence = QStringLiteral("Opens as a new design; Save asks for a name.");
    QString told = QStringLiteral("Sample ") + text();
    if (card_) {
      sentence = SentenceOf(*card_, desk_.station.s.signs) + QLatin1Char(' ') + sentence;
      told += QStringLiteral(", ") + KindOf(*card_, QStringLiteral(", "));
      if (!card_->minutes.empty()) told += QStringLiteral(", %1 min").arg(Shown(card_->minutes));
    }
    Say(told, sentence, text());
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const bool lit = underMouse() || isDown() || hasFocus(), low = height() < kCardHeight;
    p.setPen(QPen(t[lit ? Token::Accent : Token::FieldEdge], 1));
    p.setBrush(t[lit ? Token::Selected : Token::Panel]);
    p.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
    if (!low) {
      p.fillRect(QRectF(1, 4, width() - 2, kPicture - 4), t[Token::Drawing]);
      p.setPen(t[Token::Hairline]);
      p.drawLine(QPointF(1, kPicture + 0.5), QPointF(width() - 1, kPicture + 0.5));
      if (card_) PaintThumbnail(p, t, *card_, QRectF(6, 10, width() - 12, kPicture - 20));
    }
    if (hasFocus()) PaintFocus(p, t[Token::Focus], Inset(rect(), 1));
    const double x = 10, room = width() - 2 * x;
    p.setFont(t.Font(13, Weight::Medium));
    p.setPen(t[Token::Text]);
    p.drawText(low ? QRectF(x, 0, room, height()) : QRectF(x, kPicture + 4, room, 20),
               Qt::AlignLeft | Qt::AlignVCenter,
               p.fontMetrics().elidedText(text(), Qt::ElideRight, static_cast<int>(room)));
    if (low || !card_) return;
    const QRectF under(x, kPicture + 24, room, 20);
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(under, Qt::AlignLeft | Qt::AlignVCenter,
               KindOf(*card_, QStringLiteral(" ") + QChar(0xB7) + QLatin1Char(' ')));
    if (card_->minutes.empty()) return;
    p.setFont(t.Font(12, Weight::Medium));
    p.setPen(t[Token::Figures]);
    p.drawText(under, Qt::AlignRight | Qt::AlignVCenter, Shown(card_->minutes) + QStringLiteral(" min"));
  }
};

SampleShelf::SampleShelf(Desk desk, DesignCards& cards, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      cards_(cards),
      title_(new Word(desk, QStringLiteral("Samples"), 15, Token::Text, Weight::Medium, this)),
      second_(new Word(desk, QStringLiteral("each opens as a new design"), 12, Token::Second, Weight::Regular,
                       this)),
      count_(new Word(desk, {}, 12, Token::Second, Weight::Regular, this)),
      back_(new Button(desk, ButtonLook::Outline, Icon::Left, {}, this)),
      on_(new Button(desk, ButtonLook::Outline, Icon::Right, {}, this)) {
  setObjectName(QStringLiteral("samples"));
  for (const bool on : {false, true}) {
    Button* button = on ? on_ : back_;
    const QString name = on ? QStringLiteral("Further samples") : QStringLiteral("Samples before these");
    button->setObjectName(on ? QStringLiteral("samplesOn") : QStringLiteral("samplesBack"));
    button->setAccessibleName(name);
    button->setStatusTip(QStringLiteral("Shows them in the place of these."));
    button->setToolTip(name);
    button->setFixedSize(32, 26);
    connect(button, &QAbstractButton::clicked, this, [this, on] { Turn(on ? 1 : -1); });
  }
  for (int place = 1; place <= kMostCards; ++place) places_.push_back(new SampleCard(desk, place, this));
}

void SampleShelf::Turn(int by) {
  const bool byKeys = back_->hasFocus() || on_->hasFocus();
  if (by > 0)
    first_ = std::min(first_ + shown_, names_.size() - std::min(shown_, names_.size()));
  else
    first_ -= std::min(first_, shown_);
  Place();
  // The keys stay where there is still somewhere to go.
  if (byKeys && !back_->isEnabled()) on_->setFocus();
  if (byKeys && !on_->isEnabled()) back_->setFocus();
}

void SampleShelf::Refresh() {
  const Files& files = desk_.station.platform.files;
  const std::string folder = files.SampleFolder();
  names_.clear();
  if (!folder.empty())
    for (std::string& name : files.NamesIn(folder))
      if (FamilyOfDesign(name)) names_.push_back(std::move(name));
  // A tube first, as the plainest part.
  std::stable_sort(names_.begin(), names_.end(), [](const std::string& one, const std::string& other) {
    return FamilyOfDesign(one) < FamilyOfDesign(other);
  });
  Place();
}

void SampleShelf::Place() {
  const int places = std::clamp((width() + kGap) / (kCardWidth + kGap), 1, kMostCards);
  shown_ = std::min(names_.size(), static_cast<std::size_t>(places));
  first_ = std::min(first_, names_.size() - shown_);
  const std::string folder = desk_.station.platform.files.SampleFolder();
  for (std::size_t i = 0; i < places_.size(); ++i) {
    const bool shown = i < shown_;
    places_[i]->setVisible(shown);
    if (!shown) continue;
    const std::string& name = names_[first_ + i];
    const std::string path = folder + '\\' + name;
    places_[i]->setGeometry(static_cast<int>(i) * (kCardWidth + kGap), kShelfHead, kCardWidth,
                            height() < kHeight ? kLowCardHeight : kCardHeight);
    places_[i]->Show(path, name, cards_.Find(path));
  }
  const bool all = shown_ == names_.size();
  for (QWidget* arrow : {back_, on_}) arrow->setVisible(!all);
  count_->setVisible(!all);
  back_->setEnabled(first_ > 0);
  on_->setEnabled(first_ + shown_ < names_.size());
  count_->SetText(QStringLiteral("%1 to %2 of %3").arg(first_ + 1).arg(first_ + shown_).arg(names_.size()));
  // Above the last card.
  const int right = std::max(kCardWidth, static_cast<int>(shown_) * (kCardWidth + kGap) - kGap);
  on_->move(right - 32, 0);
  back_->move(right - 68, 0);
  const int counted = count_->sizeHint().width();
  count_->setGeometry(right - 76 - counted, 4, counted, 18);
  title_->setGeometry(0, 2, title_->sizeHint().width(), 22);
  second_->setGeometry(title_->sizeHint().width() + 8, 5, second_->sizeHint().width(), 18);
}

void SampleShelf::resizeEvent(QResizeEvent*) { Place(); }

}  // namespace torvane
