#include "window/reader/program_window.h"

#include <QBoxLayout>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QShortcut>

#include "look/screen.h"
#include "look/text.h"
#include "text/text.h"

namespace torvane {

namespace {

constexpr int kTools = 50, kFoot = 26;

}  // namespace

ProgramWindow::ProgramWindow(const Theme& theme)
    : QWidget(nullptr, Qt::Window), theme_(theme), view_(new ProgramView(theme, this)) {
  setObjectName(QStringLiteral("programWindow"));
  setMinimumSize(620, 400);
  resize(1000, 760);
  KeepOnScreen(*this);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(MakeBar());
  rows->addWidget(view_, 1);
  place_ = new QLabel(this);
  place_->setObjectName(QStringLiteral("programPlace"));
  place_->setFixedHeight(kFoot);
  place_->setContentsMargins(12, 0, 12, 0);
  rows->addWidget(place_);
  view_->moved = [this] { SayPlace(); };
  AddKeys();
  view_->setFocus();
}

QLineEdit* ProgramWindow::AddInput(const char* name, const QString& words, const QString& spoken, int width) {
  auto* edit = new QLineEdit(this);
  edit->setObjectName(QString::fromLatin1(name));
  edit->setPlaceholderText(words);
  edit->setAccessibleName(spoken);
  edit->setFixedSize(width, 32);
  edit->setTextMargins(6, 0, 6, 0);
  return edit;
}

QWidget* ProgramWindow::MakeBar() {
  auto* bar = new QWidget(this);
  bar->setFixedHeight(kTools);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(10, 0, 12, 0);
  row->setSpacing(6);
  const auto button = [&](const char* name, Icon icon, const QString& caption, const QString& tip,
                          const std::function<void()>& does) {
    auto* made = new PlainButton(theme_, ButtonLook::Flat, icon, caption, bar);
    made->setObjectName(QString::fromLatin1(name));
    made->setAccessibleName(caption);
    made->setAccessibleDescription(tip);
    made->setToolTip(tip);
    connect(made, &PlainButton::clicked, this, does);
    return made;
  };
  fold_ = button("foldLayers", Icon::Right, QStringLiteral("Fold Layers"),
                 QStringLiteral("Leaves one line of each layer. Left folds the section of the present line"),
                 [this] { view_->FoldLayers(true); });
  unfold_ = button("unfoldAll", Icon::Down, QStringLiteral("Unfold All"),
                   QStringLiteral("Shows every line again. Right unfolds the section of the present line"),
                   [this] { view_->FoldLayers(false); });
  row->addWidget(fold_);
  row->addWidget(unfold_);
  row->addStretch(1);
  found_ = new QLabel(bar);
  found_->setObjectName(QStringLiteral("programFound"));
  row->addWidget(found_);
  search_ =
      AddInput("programSearch", QStringLiteral("Search (Ctrl+F)"), QStringLiteral("Search in the text"), 170);
  row->addWidget(search_);
  row->addWidget(button("programNext", Icon::Down, QStringLiteral("Next"),
                        QStringLiteral("To the next place (F3, back with Shift+F3)"),
                        [this] { Find(true); }));
  line_ = AddInput("programLine", QStringLiteral("Line (Ctrl+G)"), QStringLiteral("Go to a line"), 110);
  line_->setValidator(new QIntValidator(1, 99'999'999, line_));
  row->addWidget(line_);
  connect(search_, &QLineEdit::textEdited, this, [this] { Find(true, true); });
  connect(search_, &QLineEdit::returnPressed, this, [this] { Find(true); });
  connect(line_, &QLineEdit::returnPressed, this, [this] { GoToTypedLine(); });
  return bar;
}

void ProgramWindow::AddKeys() {
  const auto key = [this](const QKeySequence& keys, const std::function<void()>& does) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, does);
  };
  const auto type = [](QLineEdit* into) {
    into->setFocus();
    into->selectAll();
  };
  key(QKeySequence::Find, [this, type] { type(search_); });
  key(Qt::CTRL | Qt::Key_G, [this, type] { type(line_); });
  key(Qt::Key_F3, [this] { Find(true); });
  key(Qt::SHIFT | Qt::Key_F3, [this] { Find(false); });
}

void ProgramWindow::Show(const std::string& path, std::string bytes) {
  setWindowTitle(Shown(BehindLastBackslash(path)));
  view_->SetText(std::make_unique<ProgramText>(std::move(bytes)));
  for (PlainButton* button : {fold_, unfold_}) button->setVisible(view_->text().HasLayers());
  show();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
}

void ProgramWindow::Find(bool forward, bool fromHere) {
  const bool found = view_->Find(search_->text(), forward, fromHere);
  found_->setText(found || search_->text().isEmpty() ? QString() : QStringLiteral("not found"));
}

void ProgramWindow::GoToTypedLine() {
  view_->GoTo(line_->text().toInt());
  view_->setFocus();
}

void ProgramWindow::SayPlace() {
  place_->setText(QStringLiteral("Line %1 of %2. Nothing can be changed here.")
                      .arg(view_->line())
                      .arg(view_->text().Lines()));
}

// Esc leaves what is typed into first.
void ProgramWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  if (view_->hasFocus())
    close();
  else
    view_->setFocus();
}

void ProgramWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) view_->viewport()->update();
}

void ProgramWindow::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), theme_[Token::Bars]);
  p.setPen(theme_[Token::Hairline]);
  p.drawLine(0, kTools - 1, width(), kTools - 1);
  p.drawLine(0, height() - kFoot, width(), height() - kFoot);
}

ViewingLauncher::~ViewingLauncher() { delete window_.data(); }

Outcome ViewingLauncher::Start(std::string_view program, std::string_view arguments,
                               std::string_view folder) {
  const Outcome started = under_.Start(program, arguments, folder);
  if (started || BehindLastBackslash(program) != "Notepad2.exe") return started;
  const Result<std::string> text = files_.ReadWhole(arguments);
  if (!text) return started;
  if (window_ == nullptr) window_ = new ProgramWindow(theme_);
  window_->Show(std::string(arguments), text.value());
  return Done{};
}

}  // namespace torvane
