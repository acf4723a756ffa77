#include "window/dialog/dialogs.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "host/files/paths.h"
#include "look/screen.h"
#include "look/text.h"
#include "workbench/station/messages.h"

namespace torvane {

namespace {

constexpr int kLeastWidth = 580;
constexpr int kBar = 66;
constexpr int kTextLeft = 80, kAbove = 22, kTextLine = 22;

// Its lines as they stand, without the empty ones at its ends.
QString Body(const QString& text) {
  QStringList lines = QString(text).remove(QLatin1Char('\r')).split(QLatin1Char('\n'));
  while (!lines.isEmpty() && lines.first().trimmed().isEmpty()) lines.removeFirst();
  while (!lines.isEmpty() && lines.last().trimmed().isEmpty()) lines.removeLast();
  return lines.join(QLatin1Char('\n'));
}

// The message with its own line breaks.
class MessageText : public QLabel {
 public:
  MessageText(const Theme& theme, const QString& text, QWidget* parent)
      : QLabel(text, parent), theme_(theme), lines_(text.split(QLatin1Char('\n'))) {
    setObjectName(QStringLiteral("lblMsg"));
    setTextFormat(Qt::PlainText);
    const QFontMetrics metrics(theme.Font(15));
    int widest = 0;
    for (const QString& line : lines_) widest = std::max(widest, metrics.horizontalAdvance(line));
    resize(widest + 2, static_cast<int>(lines_.size()) * kTextLine);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.setFont(theme_.Font(15));
    p.setPen(theme_[Token::Text]);
    int y = 0;
    for (const QString& line : lines_) {
      p.drawText(QRect(0, y, width(), kTextLine), Qt::AlignLeft | Qt::AlignVCenter, line);
      y += kTextLine;
    }
  }

 private:
  const Theme& theme_;
  QStringList lines_;
};

}  // namespace

MessageView ViewOf(const Message& message) {
  MessageView view{QStringLiteral(" Message"), Shown(message.text), message.number, message.okOnly,
                   message.offer};
  if (!message.okOnly)
    view.icon = Icon::Question;
  else if (message.number == messages::kStopInsideOffset.number)
    view.icon = Icon::TooLow, view.ink = Token::Fault;
  else if (message.beep)
    view.icon = Icon::Warning, view.ink = Token::Note;
  if (!message.tick.empty()) view.tick = Shown(message.tick);
  view.hint = Shown(message.hint);
  return view;
}

MessageWindow::MessageWindow(const Theme& theme, const MessageView& view,
                             const std::function<void(bool on)>& ticked, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowStaysOnTopHint), theme_(theme), view_(view) {
  setObjectName(QStringLiteral("message"));
  setWindowTitle(view.title);
  setPalette(theme.Palette());
  view_.text = Body(view.text);
  setAccessibleName(view.title.trimmed());
  setAccessibleDescription(view_.hint.isEmpty() ? view_.text
                                                : view_.text + QStringLiteral("\n") + view_.hint);
  auto* text = new MessageText(theme, view_.text, this);
  const int hint = view_.hint.isEmpty() ? 0 : kTextLine;
  ground_ = std::max(98, text->height() + 2 * kAbove + hint);
  const int widest = std::max(text->width(), QFontMetrics(theme.Font(13)).horizontalAdvance(view_.hint));
  setFixedSize(std::max(kLeastWidth, kTextLeft + widest + 70), ground_ + kBar);
  text->move(kTextLeft, kAbove);
  AddBar(ticked);
}

void MessageWindow::AddBar(const std::function<void(bool on)>& ticked) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(22, 0, 18, 12);
  column->addStretch(1);
  auto* bar = new QHBoxLayout;
  bar->setSpacing(10);
  column->addLayout(bar);
  if (view_.offer) {
    auto* offer = new QCheckBox(view_.tick, this);
    offer->setObjectName(QStringLiteral("chkNoShow"));
    offer->setFont(theme_.Font(13));
    offer->setMinimumHeight(32);
    connect(offer, &QCheckBox::clicked, this, [ticked](bool on) {
      if (ticked) ticked(on);
    });
    bar->addWidget(offer);
  }
  bar->addStretch(1);
  const auto button = [&](const char* name, const QString& caption, bool isDefault, int result) {
    auto* made = new QPushButton(caption, this);
    made->setObjectName(QString::fromLatin1(name));
    made->setFixedSize(118, 42);
    made->setFont(theme_.Font(14, Weight::Medium));
    made->setDefault(isDefault);
    made->setAutoDefault(isDefault);
    connect(made, &QPushButton::clicked, this, [this, result] { done(result); });
    bar->addWidget(made);
    if (isDefault) made->setFocus();
  };
  if (!view_.okOnly) button("btnYes", QStringLiteral("&Yes"), true, QDialog::Accepted);
  button("btnNo", view_.okOnly ? QStringLiteral("OK") : QStringLiteral("&No"), view_.okOnly,
         QDialog::Rejected);
}

void MessageWindow::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), theme_[Token::Panel]);
  p.fillRect(0, ground_, width(), height() - ground_, theme_[Token::Bars]);
  p.fillRect(0, ground_, width(), 1, theme_[Token::Hairline]);
  PaintIcon(p, view_.icon, {22, 20, 40, 40}, theme_[view_.ink]);
  if (!view_.hint.isEmpty()) {
    p.setFont(theme_.Font(13));
    p.setPen(theme_[Token::Second]);
    p.drawText(QRect(kTextLeft, ground_ - kTextLine - 8, width() - kTextLeft - 20, kTextLine),
               Qt::AlignLeft | Qt::AlignVCenter, view_.hint);
  }
  if (view_.number == 0) return;
  p.setFont(theme_.Font(12));
  p.setPen(theme_[Token::Off]);
  p.drawText(QRect(width() - 84, 20, 60, 16), Qt::AlignRight | Qt::AlignVCenter,
             QString::number(view_.number));
}

void MessageWindow::keyPressEvent(QKeyEvent* event) {
  if (!view_.okOnly && event->key() == Qt::Key_Y) return done(QDialog::Accepted);
  if (!view_.okOnly && event->key() == Qt::Key_N) return done(QDialog::Rejected);
  QDialog::keyPressEvent(event);
}

bool QtMessageDialog::Ask(const Message& message) {
  if (message.beep) QApplication::beep();
  MessageWindow window(theme_, ViewOf(message), message.ticked, QApplication::activeWindow());
  return window.exec() == QDialog::Accepted;
}

void QtMessageBox::Show(std::string_view title, std::string_view text, BoxIcon icon,
                        std::string_view detail) {
  MessageView view{Shown(title), Shown(text)};
  if (!detail.empty()) view.text += QStringLiteral("\n\n") + Shown(detail);
  if (icon == BoxIcon::Stop) view.icon = Icon::Warning, view.ink = Token::Fault;
  if (icon == BoxIcon::None) view.icon = Icon::Warning, view.ink = Token::Note;
  MessageWindow(theme_, view, {}, QApplication::activeWindow()).exec();
}

namespace {

// The captions of a filter, each with its pattern in brackets.
QString Filters(std::string_view filter) {
  const QStringList parts = Shown(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  QStringList captions;
  for (int i = 0; i + 1 < parts.size(); i += 2) captions.push_back(parts[i]);
  return captions.join(QStringLiteral(";;"));
}

QString HostFolder(std::string_view folder) {
  const Result<std::string> path = HostPath(folder);
  return path ? QString::fromStdString(path.value()) : QString();
}

}  // namespace

void TellRefusedName(MessageBox& box, std::string_view reason) {
  box.Show("Torvane Designer", "This file's name cannot be used: " + std::string(reason), BoxIcon::Stop);
}

std::optional<std::string> QtFileDialog::Ask(QFileDialog& dialog) {
  // Wide enough for sizes and dates beside the names, as far as the screen is.
  dialog.resize(820, 520);
  KeepOnScreen(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const Result<std::string> station = StationPath(dialog.selectedFiles().first().toStdString());
  if (station) return station.value();
  TellRefusedName(box_, station.reason());
  return std::nullopt;
}

std::optional<std::string> QtFileDialog::AskOpen(std::string_view filter, std::string_view folder) {
  QFileDialog dialog(QApplication::activeWindow(), QStringLiteral("Open"), HostFolder(folder),
                     Filters(filter));
  dialog.setFileMode(QFileDialog::ExistingFile);
  return Ask(dialog);
}

std::optional<std::string> QtFileDialog::AskSave(std::string_view filter, std::string_view folder,
                                                 std::string_view proposedName) {
  QFileDialog dialog(QApplication::activeWindow(), QStringLiteral("Save"), HostFolder(folder),
                     Filters(filter));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  // The name counts as it is typed, and the copy that is kept of a replaced design is its guard. A desktop's
  // own dialog would ask, or complete the name.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  if (!proposedName.empty()) dialog.selectFile(Shown(proposedName));
  return Ask(dialog);
}

}  // namespace torvane
