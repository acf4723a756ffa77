#include "window/field/choice_popup.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>
#include <cctype>

#include "look/text.h"
#include "text/text.h"

namespace torvane {

namespace {

constexpr int kHairline = 9;
constexpr int kRow = 28;
constexpr int kMostRows = 14;

class ChoicePopup : public QListWidget {
 public:
  ChoicePopup(Desk desk, Field& field, QWidget* parent) : QListWidget(parent), desk_(desk), field_(field) {
    setWindowFlags(Qt::Popup);
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("choices"));
    setPalette(desk.theme.Palette());
    setFont(desk.theme.FigureFont(14, Weight::Medium));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    for (const std::string& entry : field.entries()) {
      const bool blank = Trim(entry).empty();
      auto* item = new QListWidgetItem(blank ? QString() : Shown(entry), this);
      item->setSizeHint({0, blank ? kHairline : desk.theme.Figure(kRow)});
      if (blank) item->setFlags(Qt::NoItemFlags);
      if (entry == field.text()) setCurrentItem(item);
    }
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem*) { Take(); });
    connect(this, &QListWidget::itemEntered, this, [this](QListWidgetItem* item) {
      if (item->flags() != Qt::NoItemFlags) setCurrentItem(item);
    });
  }

  QSize Wanted(int least) const {
    int height = 0;
    for (int i = 0; i < std::min(count(), kMostRows); ++i) height += item(i)->sizeHint().height();
    const int bar = count() > kMostRows ? verticalScrollBar()->sizeHint().width() : 0;
    return {std::max(least, sizeHintForColumn(0) + bar + 24), height + 2 * frameWidth() + 2};
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
      case Qt::Key_Tab:
        return Take();
      case Qt::Key_Escape:
        close();
        return;
      default:
        QListWidget::keyPressEvent(event);
    }
  }
  void paintEvent(QPaintEvent* event) override {
    QListWidget::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(desk_.theme[Token::Hairline]);
    for (int i = 0; i < count(); ++i) {
      if (item(i)->flags() != Qt::NoItemFlags) continue;
      const QRect row = visualItemRect(item(i));
      painter.drawLine(row.left() + 6, row.center().y(), row.right() - 6, row.center().y());
    }
  }

 private:
  void Take() {
    const int row = currentRow();
    const bool good = row >= 0 && currentItem()->flags() != Qt::NoItemFlags;
    const std::string text = good ? field_.entries()[static_cast<std::size_t>(row)] : std::string();
    // A message may follow from the choice; the list is closed by then.
    Field& field = field_;
    Binder& binder = desk_.binder;
    hide();
    close();
    if (good) binder.Choose(field, text);
  }

  Desk desk_;
  Field& field_;
};

}  // namespace

void OpenChoices(Desk desk, Field& field, QWidget* parent, const QRect& box) {
  auto* popup = new ChoicePopup(desk, field, parent);
  const QSize size = popup->Wanted(box.width());
  QPoint at = box.bottomLeft() + QPoint(0, 1);
  const QRect screen = parent->screen()->availableGeometry();
  if (at.y() + size.height() > screen.bottom()) at.setY(std::max(screen.top(), box.top() - size.height()));
  at.setX(std::max(screen.left(), std::min(at.x(), screen.right() - size.width())));
  popup->setGeometry({at, size});
  popup->show();
  if (popup->currentItem() != nullptr) popup->scrollToItem(popup->currentItem());
}

bool IsCharacter(const QKeyEvent& key) {
  const bool plain = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  return plain && key.text().size() == 1 && key.text()[0].isPrint();
}

std::string EntryOf(const Field& field, const QKeyEvent& key) {
  if (!IsCharacter(key)) return {};
  const auto& entries = field.entries();
  const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
  const auto present = std::find(entries.begin(), entries.end(), field.text()) - entries.begin();
  const auto count = static_cast<std::ptrdiff_t>(entries.size());
  for (std::ptrdiff_t step = 1; step <= count; ++step) {
    const std::string& entry = entries[static_cast<std::size_t>((present + step) % count)];
    if (!entry.empty() && lower(entry.front()) == lower(key.text()[0].toLatin1())) return entry;
  }
  return {};
}

}  // namespace torvane
