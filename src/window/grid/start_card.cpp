#include "window/grid/start_card.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QMouseEvent>
#include <algorithm>

#include "look/paint.h"
#include "look/text.h"
#include "persist/settings.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/grid/recent_list.h"
#include "window/grid/sample_shelf.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

// Heights where there is plenty of room and where there is little.
constexpr int kHigh = 420, kLow = 300, kLowest = 200;
// Of the recent designs: the least width of their column, and what stands above them in it, or where they
// stand under the button that opens a design.
constexpr int kRecentWidth = 185;
constexpr int kUnderTitle = 50, kUnderOpen = 142, kLowUnderTitle = 30, kLowUnderOpen = 104;

QVBoxLayout* Column(QWidget* owner, Desk desk, const QString& title, const QString& second,
                    std::vector<QWidget*>& seconds) {
  auto* column = new QVBoxLayout(owner);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(new Word(desk, title, 15, Token::Text, Weight::Medium));
  seconds.push_back(new Word(desk, second, 12, Token::Second));
  column->addWidget(seconds.back());
  column->addSpacing(4);
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
    : QWidget(parent), desk_(desk), family_(family), cards_(desk.station) {
  setAutoFillBackground(true);
  auto* rows = new QVBoxLayout(this);
  rows->setSpacing(8);
  columns_ = new QHBoxLayout;
  columns_->addWidget(counted_ = MakeCounts(), 0, Qt::AlignTop);
  columns_->addWidget(opened_ = MakeOpen(), 0, Qt::AlignTop);
  columns_->addWidget(recent_ = MakeRecent(), 1, Qt::AlignTop);
  columns_->addWidget(linked_ = MakeLinks(), 0, Qt::AlignTop);
  rows->addLayout(columns_);
  rows->addStretch(1);
  rows->addWidget(shelf_ = new SampleShelf(desk, cards_, this));
  rows->addWidget(MakeOffset(family));
  cards_.read = [this] { Refresh(); };
  desk.binder.BindAll(this, [this] {
    if (!isVisible()) return;
    Refresh();
    Arrange();
  });
}

void StartCard::showEvent(QShowEvent*) {
  cards_.Forget();
  Refresh();
  Arrange();
}

void StartCard::Refresh() {
  list_->Refresh();
  shelf_->Refresh();
}

void StartCard::resizeEvent(QResizeEvent*) { Arrange(); }

void StartCard::Arrange() {
  const bool low = height() < kLow, high = height() >= kHigh;
  const QMargins margins(28, low ? 10 : high ? 20 : 12, 28, low ? 8 : high ? 16 : 10);
  layout()->setContentsMargins(margins);
  columns_->setSpacing(width() < 1000 ? 18 : 36);
  for (QWidget* count : counts_) count->setFixedSize(44, low ? 28 : high ? 38 : 34);
  for (QWidget* link : links_) link->setFixedHeight(low ? 24 : high ? 34 : 28);
  community_->setFixedHeight(low ? 32 : high ? 38 : 34);
  for (QWidget* second : seconds_) second->setVisible(!low);
  strip_->setFixedHeight(low ? 48 : high ? 62 : 50);
  strip_->setVisible(!offsetConfirmed_ && height() >= kLowest);
  PlaceRecent();
  const int gap = layout()->spacing();
  int room = height() - margins.top() - margins.bottom();
  if (!strip_->isHidden()) room -= strip_->height() + gap;
  // The columns have it first, then the samples; what is left shows more of the recent designs.
  const int above =
      recentBelowOpen_ ? (low ? kLowUnderOpen : kUnderOpen) : (low ? kLowUnderTitle : kUnderTitle);
  int columns = std::max(counted_->sizeHint().height(), above + RecentList::kRowHeight);
  if (!linked_->isHidden()) columns = std::max(columns, linked_->sizeHint().height());
  const int samples = room - columns - gap;
  shelf_->setVisible(!shelf_->empty() && samples >= SampleShelf::kLowHeight);
  shelf_->setFixedHeight(samples >= SampleShelf::kHeight ? SampleShelf::kHeight : SampleShelf::kLowHeight);
  if (!shelf_->isHidden()) room -= shelf_->height() + gap;
  list_->Limit(std::clamp((room - above) / RecentList::kRowHeight, 0, RecentList::kMost));
  // The columns take their new heights now, not with the next change of the card's own size.
  layout()->invalidate();
  layout()->activate();
  update();
}

// In a column of its own where there is room for one, else under the button that opens a design.
void StartCard::PlaceRecent() {
  const int spacing = columns_->spacing();
  int room = width() - 56 - counted_->sizeHint().width() - opened_->minimumSizeHint().width() - 2 * spacing;
  if (!linked_->isHidden()) room -= linked_->sizeHint().width() + spacing;
  const bool below = room < kRecentWidth;
  if (below != recentBelowOpen_) {
    recentBelowOpen_ = below;
    columns_->removeWidget(recent_);
    open_->removeWidget(recent_);
    if (below)
      open_->addWidget(recent_);
    else
      columns_->insertWidget(2, recent_, 1, Qt::AlignTop);
    columns_->setStretchFactor(opened_, below ? 1 : 0);
  }
  drop_->setVisible(!below && height() >= kLow);
}

// A line between the columns and the samples.
void StartCard::paintEvent(QPaintEvent*) {
  if (shelf_->isHidden()) return;
  QPainter painter(this);
  painter.setPen(desk_.theme[Token::Hairline]);
  painter.drawLine(28, shelf_->y() - 7, width() - 28, shelf_->y() - 7);
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
                        QStringLiteral("One row each, up to 15. You can change it later."), seconds_);
  auto* grid = new QGridLayout;
  grid->setSpacing(6);
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
                        QStringLiteral("From TV_Design_Files."), seconds_);
  auto* open = new Button(desk_, ButtonLook::Outline, Icon::Open, QStringLiteral("Open a design"), owner);
  open->Runs("btnOPen");
  open->setObjectName(QStringLiteral("startOpen"));
  open->setFixedSize(160, 36);
  column->addWidget(open);
  column->addSpacing(2);
  column->addWidget(drop_ = new Word(desk_, QStringLiteral("Or drop it on the window."), 12, Token::Second));
  open_ = column;
  return owner;
}

QWidget* StartCard::MakeRecent() {
  auto* owner = new QWidget(this);
  auto* column =
      Column(owner, desk_, QStringLiteral("Recent"), QStringLiteral("The latest stands first."), seconds_);
  column->addWidget(list_ = new RecentList(desk_, cards_));
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
  seconds_.push_back(new Word(desk_, QStringLiteral("You can design without it. Build will ask for it."), 12,
                              Token::Second));
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
