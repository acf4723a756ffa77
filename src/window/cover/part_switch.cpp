#include "window/cover/part_switch.h"

#include <QBoxLayout>

#include "look/paint.h"
#include "window/field/button.h"

namespace torvane {

namespace {

struct Choice {
  PartShows shows;
  const char *name, *object, *tip;
};
constexpr Choice kChoices[] = {
    {PartShows::Pattern, "Pattern", "showPattern", "The pressed row's band, out and back (Ctrl+1)"},
    {PartShows::Coverage, "Coverage", "showCoverage",
     "How many bands the program lays on each place (Ctrl+2)"},
    {PartShows::Thickness, "Thickness", "showThickness", "How thick the program winds each place (Ctrl+3)"}};
constexpr int kHeight = 26;

}  // namespace

void ShowPart(const Desk& desk, const PartView& view) {
  desk.live->Show(view);
  desk.binder.Do([] {});
}

PartSwitch::PartSwitch(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setAccessibleName(QStringLiteral("What the drawing shows"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  for (const Choice& choice : kChoices) {
    auto* button = new Button(desk, ButtonLook::Segment, Icon::None, QString::fromLatin1(choice.name), this);
    button->SetTextSize(12);
    button->setObjectName(QString::fromLatin1(choice.object));
    button->setToolTip(QString::fromLatin1(choice.tip));
    button->setFixedHeight(kHeight);
    const PartShows shows = choice.shows;
    connect(button, &QAbstractButton::clicked, this, [this, shows] {
      PartView view = desk_.live->view();
      view.shows = shows;
      ShowPart(desk_, view);
    });
    row->addWidget(button);
    choices_.push_back(button);
  }
  unroll_ = new Button(desk, ButtonLook::Outline, Icon::None, QStringLiteral("Unroll"), parent);
  unroll_->SetTextSize(12);
  unroll_->setObjectName(QStringLiteral("unroll"));
  unroll_->setToolTip(QStringLiteral("The surface below the drawing, mandrel angle against Z"));
  unroll_->setFixedHeight(kHeight);
  connect(unroll_, &QAbstractButton::clicked, this, [this] {
    PartView view = desk_.live->view();
    view.unrolled = !view.unrolled;
    ShowPart(desk_, view);
  });
  desk.binder.BindAll(this, [this] {
    const PartView& view = desk_.live->view();
    for (std::size_t i = 0; i < choices_.size(); ++i) {
      choices_[i]->SetFilled(kChoices[i].shows == view.shows);
      choices_[i]->setAccessibleDescription(kChoices[i].shows == view.shows ? QStringLiteral("chosen")
                                                                            : QString());
    }
    unroll_->setText(view.unrolled ? QStringLiteral("Roll up") : QStringLiteral("Unroll"));
    unroll_->setVisible(view.mapped() && isVisibleTo(parentWidget()));
  });
}

std::vector<QWidget*> PartSwitch::stops() const {
  std::vector<QWidget*> stops(choices_.begin(), choices_.end());
  stops.push_back(unroll_);
  return stops;
}

// A ground for all three, over the drawing's grid.
void PartSwitch::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(t[Token::FieldEdge]);
  p.setBrush(t.dark() ? t[Token::TableHead] : t[Token::Panel]);
  p.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
}

void PartSwitch::PlaceAt(int right, int top) {
  resize(sizeHint());
  move(right - width(), top);
  unroll_->resize(unroll_->sizeHint().width(), kHeight);
  unroll_->move(right - unroll_->width(), top + kHeight + 2);
  unroll_->setVisible(desk_.live->view().mapped() && isVisibleTo(parentWidget()));
}

}  // namespace torvane
