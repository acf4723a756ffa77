#include "window/reader/guide_window.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QShortcut>
#include <QTreeWidget>

#include "look/screen.h"
#include "window/reader/guide_topics.h"

namespace torvane {

namespace {

constexpr int kBar = 50, kContents = 230;

}  // namespace

GuideWindow::GuideWindow(const Theme& theme, const QString& folder, QWidget* parent)
    : QWidget(parent, Qt::Window), theme_(theme), text_(new GuideText(theme, this)) {
  setObjectName(QStringLiteral("guideWindow"));
  setWindowTitle(QStringLiteral("Operator's Guide"));
  setMinimumSize(620, 400);
  resize(1000, 760);
  KeepOnScreen(*this);
  contents_ = new QTreeWidget(this);
  contents_->setObjectName(QStringLiteral("guideContents"));
  contents_->setAccessibleName(QStringLiteral("Contents"));
  contents_->setHeaderHidden(true);
  contents_->setRootIsDecorated(false);
  contents_->setIndentation(16);
  contents_->setFrameShape(QFrame::NoFrame);
  contents_->setFixedWidth(kContents);
  contents_->setTabKeyNavigation(false);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(MakeBar());
  auto* body = new QHBoxLayout;
  body->setSpacing(1);
  body->addWidget(contents_);
  body->addWidget(text_, 1);
  rows->addLayout(body, 1);
  text_->Read(folder);
  FillContents();
  connect(contents_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    for (std::size_t i = 0; i < items_.size(); ++i)
      if (items_[i] == item) Go({static_cast<int>(i), {}});
  });
  connect(text_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { FollowScroll(); });
  text_->setFocus();
}

PlainButton* GuideWindow::AddButton(const char* name, Icon icon, const QString& caption, const QString& tip,
                                    const std::function<void()>& does) {
  auto* button = new PlainButton(theme_, ButtonLook::Flat, icon, caption, this);
  button->setObjectName(QString::fromLatin1(name));
  button->setAccessibleName(caption);
  button->setAccessibleDescription(tip);
  button->setToolTip(tip);
  button->setFixedHeight(34);
  connect(button, &PlainButton::clicked, this, does);
  return button;
}

QWidget* GuideWindow::MakeBar() {
  auto* bar = new QWidget(this);
  bar->setFixedHeight(kBar);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(10, 0, 12, 0);
  row->setSpacing(6);
  back_ = AddButton("guideBack", Icon::Left, QStringLiteral("Back"),
                    QStringLiteral("To where you have read before (Alt+Left)"), [this] { Step(-1); });
  on_ = AddButton("guideForward", Icon::Right, QStringLiteral("Forward"),
                  QStringLiteral("Forward again (Alt+Right)"), [this] { Step(1); });
  row->addWidget(back_);
  row->addWidget(on_);
  row->addStretch(1);
  found_ = new QLabel(bar);
  found_->setObjectName(QStringLiteral("guideFound"));
  row->addWidget(found_);
  search_ = new QLineEdit(bar);
  search_->setObjectName(QStringLiteral("guideSearch"));
  search_->setPlaceholderText(QStringLiteral("Search (Ctrl+F)"));
  search_->setAccessibleName(QStringLiteral("Search in the guide"));
  search_->setFixedSize(220, 32);
  search_->setTextMargins(6, 0, 6, 0);
  row->addWidget(search_);
  connect(search_, &QLineEdit::textEdited, this, [this] {
    QTextCursor here = text_->textCursor();
    here.setPosition(here.selectionStart());  // while more is typed the place stays
    text_->setTextCursor(here);
    Search(true);
  });
  connect(search_, &QLineEdit::returnPressed, this, [this] { Search(true); });
  row->addWidget(AddButton("guideNext", Icon::Down, QStringLiteral("Next"),
                           QStringLiteral("To the next place (F3, back with Shift+F3)"),
                           [this] { Search(true); }));
  const auto key = [this](const QKeySequence& keys, const std::function<void()>& does) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, does);
  };
  key(QKeySequence::Find, [this] {
    search_->setFocus();
    search_->selectAll();
  });
  key(Qt::Key_F3, [this] { Search(true); });
  key(Qt::SHIFT | Qt::Key_F3, [this] { Search(false); });
  key(Qt::ALT | Qt::Key_Left, [this] { Step(-1); });
  key(Qt::ALT | Qt::Key_Right, [this] { Step(1); });
  return bar;
}

void GuideWindow::FillContents() {
  QTreeWidgetItem* chapter = nullptr;
  for (const GuideText::Heading& heading : text_->headings()) {
    auto* item = heading.level > 2 && chapter != nullptr ? new QTreeWidgetItem(chapter)
                                                         : new QTreeWidgetItem(contents_);
    if (heading.level <= 2) chapter = item;
    item->setText(0, heading.words);
    item->setToolTip(0, heading.words);
    item->setSizeHint(0, {kContents, 25});
    items_.push_back(item);
  }
  contents_->expandAll();
}

void GuideWindow::ShowAt(const QString& heading, const QString& word) {
  Place place{0, word};
  const auto& headings = text_->headings();
  for (std::size_t i = 0; i < headings.size(); ++i)
    if (headings[i].words == heading) place.heading = static_cast<int>(i);
  show();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
  Go(place);
  text_->setFocus();
}

void GuideWindow::Go(const Place& place) {
  if (!visited_.empty()) visited_.resize(now_ + 1);
  visited_.push_back(place);
  now_ = visited_.size() - 1;
  Step(0);
}

void GuideWindow::Step(int by) {
  const auto to = static_cast<std::ptrdiff_t>(now_) + by;
  if (to < 0 || to >= static_cast<std::ptrdiff_t>(visited_.size())) return;
  now_ = static_cast<std::size_t>(to);
  text_->ShowHeading(visited_[now_].heading, visited_[now_].word);
  back_->setEnabled(now_ > 0);
  on_->setEnabled(now_ + 1 < visited_.size());
  FollowScroll();
}

// The contents tell where one reads.
void GuideWindow::FollowScroll() {
  if (items_.empty()) return;
  const int at = text_->HeadingAt(text_->cursorForPosition({30, 30}).position());
  const QSignalBlocker still(contents_);
  contents_->setCurrentItem(items_[static_cast<std::size_t>(at)]);
}

void GuideWindow::Search(bool forward) {
  const int count = text_->Search(search_->text(), forward);
  found_->setText(search_->text().isEmpty() ? QString()
                  : count == 0              ? QStringLiteral("not found")
                  : count == 1              ? QStringLiteral("1 place")
                                            : QStringLiteral("%1 places").arg(count));
}

void GuideWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  if (search_->hasFocus())
    text_->setFocus();
  else
    close();
}

// The station's colours have changed.
void GuideWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && search_ != nullptr) text_->Dress();
}

void GuideWindow::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), theme_[Token::Hairline]);
  p.fillRect(0, 0, width(), kBar - 1, theme_[Token::Bars]);
}

}  // namespace torvane
