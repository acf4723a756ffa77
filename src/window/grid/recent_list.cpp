#include "window/grid/recent_list.h"

#include <QBoxLayout>

#include "look/icons.h"
#include "look/paint.h"
#include "look/text.h"
#include "text/text.h"
#include "window/field/field_widgets.h"
#include "window/part/part_thumbnail.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/recent_files.h"

namespace torvane {

// A design of the list; one that is gone is pale.
class RecentRow : public DesignButton {
 public:
  RecentRow(Desk desk, int place, QWidget* parent)
      : DesignButton(desk, QStringLiteral("recent%1").arg(place), OpenRecentDesign, parent) {
    setAccessibleName(QStringLiteral("Recent design"));
    setFixedHeight(RecentList::kRowHeight);
  }

  // `card` is null while it is not read.
  void Show(const std::string& path, bool there, const std::optional<DesignCard>* card) {
    ShowDesign(path, card);
    there_ = there;
    setText(Shown(BehindLastBackslash(path)));
    const QString sentence = !there ? QStringLiteral("It is not there any more. A click offers to forget it.")
                             : card_ ? SentenceOf(*card_, desk_.station.s.signs)
                                     : QStringLiteral("Opens this design again.");
    Say(there ? text() : text() + QStringLiteral(", not found"), sentence, Shown(path));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    if (underMouse() || isDown()) {
      p.setPen(Qt::NoPen);
      p.setBrush(t[Token::Selected]);
      p.drawRoundedRect(Inset(rect(), 1), 4, 4);
    }
    if (hasFocus()) PaintFocus(p, t[Token::Focus], Inset(rect(), 1));
    // In a narrow column the name has the room.
    const QRectF picture(4, 6, width() < 220 ? 36 : 54, height() - 12);
    if (!there_)
      PaintIcon(p, Icon::Warning, {picture.center().x() - 8, picture.center().y() - 8, 16, 16},
                t[Token::Note]);
    else if (card_)
      PaintThumbnail(p, t, *card_, picture);
    const QString end = !there_                            ? QStringLiteral("not found")
                        : card_ && !card_->minutes.empty() ? Shown(card_->minutes) + QStringLiteral(" min")
                                                           : QString();
    p.setFont(t.Font(13, Weight::Medium));
    const double from = picture.right() + 8, name = p.fontMetrics().horizontalAdvance(text());
    p.setFont(t.Font(12));
    const double ending = end.isEmpty() ? 0 : p.fontMetrics().horizontalAdvance(end) + 8;
    double room = width() - 6 - from;
    if (!there_ || name + ending <= room) {
      p.setPen(t[there_ ? Token::Second : Token::Note]);
      p.drawText(QRectF(0, 0, width() - 6, height()), Qt::AlignRight | Qt::AlignVCenter, end);
      room -= ending;
    }
    p.setFont(t.Font(13, Weight::Medium));
    p.setPen(t[there_ ? Token::Text : Token::Off]);
    p.drawText(QRectF(from, 0, room, height()), Qt::AlignLeft | Qt::AlignVCenter,
               p.fontMetrics().elidedText(text(), Qt::ElideMiddle, static_cast<int>(room)));
  }

 private:
  bool there_ = true;
};

RecentList::RecentList(Desk desk, DesignCards& cards, QWidget* parent)
    : QWidget(parent), desk_(desk), cards_(cards) {
  setObjectName(QStringLiteral("recent"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  none_ = new Word(desk, QStringLiteral("What you open or save stands here."), 12, Token::Second);
  column->addWidget(none_);
  for (int place = 1; place <= kMost; ++place) {
    rows_.push_back(new RecentRow(desk, place, this));
    column->addWidget(rows_.back());
  }
  column->addStretch(1);
}

void RecentList::Limit(int rows) {
  limit_ = rows;
  Refresh();
}

void RecentList::Refresh() {
  const std::vector<std::string> files = RecentFiles(desk_.station.platform.store);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const bool shown = i < files.size() && static_cast<int>(i) < limit_;
    rows_[i]->setVisible(shown);
    if (!shown) continue;
    const bool there = desk_.station.platform.files.Exists(files[i]);
    rows_[i]->Show(files[i], there, there ? cards_.Find(files[i]) : nullptr);
  }
  none_->setVisible(files.empty());
}

}  // namespace torvane
