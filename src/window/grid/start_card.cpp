#include "window/grid/start_card.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QMouseEvent>

#include "look/paint.h"
#include "look/text.h"
#include "persist/settings.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

// Heights where there is plenty of room and where there is little.
constexpr int kLow = 300, kLowest = 200;

QVBoxLayout* Column(QWidget* owner, Desk desk, const QString& title, const QString& second,
                    std::vector<QWidget*>& seconds) {
  auto* column = new QVBoxLayout(owner);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  column->addWidget(new Word(desk, title, 15, Token::Text, Weight::Medium));
  seconds.push_back(new Word(desk, second, 12, Token::Second));
  column->addWidget(seconds.back());
  column->addSpacing(8);
  return column;
}

// Words that are too long for one line of the card, broken near their middle.
QString InTwoLines(QString words) {
  constexpr qsizetype kLongest = 30;
  if (words.size() <= kLongest) return words;
  const qsizetype at = words.indexOf(QLatin1Char(' '), words.size() / 2);
  return at < 0 ? words : words.replace(at, 1, QLatin1Char('\n'));
}

// A strip that tells of something to do once.
class Strip : public QWidget {
 public:
  Strip(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(desk_.theme[Token::Hairline]);
    painter.setBrush(desk_.theme[Token::Selected]);
    painter.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
    PaintIcon(painter, Icon::Home, {16, height() / 2.0 - 11, 22, 22}, desk_.theme[Token::Accent]);
  }

 private:
  Desk desk_;
};

}  // namespace

StartCard::StartCard(Desk desk, Family family, QWidget* parent)
    : QWidget(parent), desk_(desk), family_(family) {
  setAutoFillBackground(true);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(28, 20, 28, 16);
  columns_ = new QHBoxLayout;
  columns_->addWidget(MakeCounts(), 0, Qt::AlignTop);
  columns_->addWidget(MakeOpen(), 0, Qt::AlignTop);
  columns_->addWidget(MakeLinks(), 1, Qt::AlignTop);
  rows->addLayout(columns_);
  rows->addStretch(1);
  rows->addWidget(MakeOffset(family));
}

void StartCard::resizeEvent(QResizeEvent*) {
  const bool low = height() < kLow;
  layout()->setContentsMargins(28, low ? 10 : 20, 28, low ? 8 : 16);
  columns_->setSpacing(width() < 800 ? 20 : 36);
  for (QWidget* count : counts_) count->setFixedSize(46, low ? 28 : 38);
  for (QWidget* link : links_) link->setFixedHeight(low ? 26 : 34);
  community_->setFixedHeight(low ? 32 : 38);
  for (QWidget* second : seconds_) second->setVisible(!low);
  strip_->setFixedHeight(low ? 48 : 62);
  strip_->setVisible(!offsetConfirmed_ && height() >= kLowest);
}

// Where the cells of the first row would be: whoever wants to type there is told what comes first.
void StartCard::mouseReleaseEvent(QMouseEvent* event) {
  if (family_ == Family::FourAxes || event->button() != Qt::LeftButton)
    event->ignore();
  else
    desk_.Run("txtWA", Event::Click, 1);
}

QWidget* StartCard::MakeCounts() {
  auto* owner = new QWidget(this);
  auto* column = Column(owner, desk_, QStringLiteral("Please Specify Number of Layers"),
                        QStringLiteral("One row a layer, up to 15. It can change later."), seconds_);
  auto* grid = new QGridLayout;
  grid->setSpacing(8);
  for (int count = 1; count <= kMostLayers; ++count) {
    auto* button = new Button(desk_, ButtonLook::Outline, Icon::None, QString::number(count), owner);
    button->setObjectName(QStringLiteral("layers%1").arg(count));
    button->setAccessibleName(QStringLiteral("%1 layers").arg(count));
    counts_.push_back(button);
    button->SetTextSize(14);
    connect(button, &QAbstractButton::clicked, this, [this, count] {
      DesignState& s = desk_.station.s;
      desk_.binder.Type(s.txtNumberOfLayers(s.Panel()), QString::number(count));
    });
    grid->addWidget(button, (count - 1) / 5, (count - 1) % 5);
  }
  grid->setColumnStretch(5, 1);
  column->addLayout(grid);
  return owner;
}

QWidget* StartCard::MakeOpen() {
  auto* owner = new QWidget(this);
  auto* column = Column(owner, desk_, QStringLiteral("Or open a design"),
                        QStringLiteral("From the folder TV_Design_Files."), seconds_);
  auto* open = new Button(desk_, ButtonLook::Outline, Icon::Open, QStringLiteral("Open a design"), owner);
  open->Runs("btnOPen");
  open->setObjectName(QStringLiteral("startOpen"));
  open->setFixedSize(190, 42);
  column->addWidget(open);
  return owner;
}

QWidget* StartCard::MakeLinks() {
  DesignState& s = desk_.station.s;
  auto* owner = new QWidget(this);
  owner->setObjectName(QStringLiteral("picVidLinks"));
  auto* column = Column(owner, desk_, QStringLiteral("Watch how it is done"),
                        QStringLiteral("Opens the web browser."), seconds_);
  const auto link = [&](const Field& field, Icon icon, const char* control, int index) {
    auto* button = new Button(desk_, ButtonLook::Flat, icon, InTwoLines(Shown(field.caption())), owner);
    button->Runs(control, index);
    button->setAccessibleName(Shown(field.caption()));
    links_.push_back(button);
    column->addWidget(button, 0, Qt::AlignLeft);
    return button;
  };
  link(s.lblVidLink(0), Icon::Video, "lblVidLink", 0);
  link(s.lblVidLink(1), Icon::Video, "lblVidLink", 1);
  community_ = link(s.lblCommunity, Icon::Picture, "lblCommunity", -1);
  links_.push_back(new FieldCheck(desk_, s.chkDontShowVideoLinks, Shown(s.chkDontShowVideoLinks.caption())));
  column->addWidget(links_.back());
  desk_.binder.Bind(s.picVidLinks, owner, [owner, &s] { ShowAs(*owner, s.picVidLinks.shown()); });
  return owner;
}

QWidget* StartCard::MakeOffset(Family family) {
  auto* strip = new Strip(desk_, this);
  strip_ = strip;
  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(54, 4, 14, 4);
  auto* words = new QVBoxLayout;
  words->setSpacing(1);
  words->addStretch(1);
  words->addWidget(new Word(
      desk_, QStringLiteral("Before your first winding, you need to measure the carriage Z-offset distance."),
      13, Token::Text, Weight::Medium));
  seconds_.push_back(new Word(
      desk_, QStringLiteral("Designs can be written without it. The build asks for it."), 12, Token::Second));
  words->addWidget(seconds_.back());
  words->addStretch(1);
  row->addLayout(words, 1);
  auto* measure = new Button(desk_, ButtonLook::Outline, Icon::None, QStringLiteral("Measure now"), strip);
  measure->setFixedSize(112, 40);
  measure->Runs(family == Family::FourAxes ? "Label9" : "Label10");
  row->addWidget(measure);
  desk_.binder.BindAll(strip, [this, strip] {
    offsetConfirmed_ = IsCarriageOffsetConfirmed(desk_.station.platform.store);
    ShowAs(*strip, !offsetConfirmed_ && height() >= kLowest);
  });
  return strip;
}

}  // namespace torvane
