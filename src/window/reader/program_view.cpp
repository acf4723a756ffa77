#include "window/reader/program_view.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include "look/icons.h"
#include "look/paint.h"
#include "look/text.h"

namespace torvane {

namespace {

constexpr int kRow = 20, kArrow = 18, kBeside = 8;
constexpr std::size_t kLongest = 4000;  // characters of a line that are painted

// Nothing in a file's text controls anything on the screen.
QString ForTheEye(std::string_view text) {
  QString shown = Shown(text.substr(0, kLongest));
  for (QChar& c : shown)
    if (c.unicode() < 0x20 || c.unicode() == 0x7F) c = QChar(0xB7);
  return shown;
}

Token TokenOf(Ink ink) {
  switch (ink) {
    case Ink::Command:
      return Token::Figures;
    case Ink::Letter:
      return Token::BandBack;
    case Ink::Comment:
      return Token::Second;
    case Ink::Figure:
    case Ink::Head:
      break;
  }
  return Token::Text;
}

}  // namespace

ProgramView::ProgramView(const Theme& theme, QWidget* parent)
    : QAbstractScrollArea(parent), theme_(theme), text_(std::make_unique<ProgramText>("")) {
  setObjectName(QStringLiteral("programView"));
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  mono_.setFamilies({QStringLiteral("JetBrains Mono"), QStringLiteral("DejaVu Sans Mono")});
  mono_.setStyleHint(QFont::Monospace);
  mono_.setPixelSize(13);
  letter_ = std::max(1, QFontMetrics(mono_).horizontalAdvance(QLatin1Char('0')));
}

void ProgramView::SetText(std::unique_ptr<ProgramText> text) {
  text_ = std::move(text);
  line_ = anchor_ = std::clamp(line_, 1, std::max(1, text_->Lines()));
  gutter_ = kArrow + letter_ * static_cast<int>(std::to_string(text_->Lines()).size()) + 2 * kBeside;
  Fit();
  Tell();
}

int ProgramView::RowsInView() const { return std::max(1, viewport()->height() / kRow); }

void ProgramView::Fit() {
  verticalScrollBar()->setRange(0, std::max(0, text_->Rows() - RowsInView()));
  verticalScrollBar()->setPageStep(RowsInView());
  const int wide = gutter_ + 2 * kBeside + text_->Widest() * letter_;
  horizontalScrollBar()->setRange(0, std::max(0, wide - viewport()->width()));
  horizontalScrollBar()->setPageStep(viewport()->width());
  horizontalScrollBar()->setSingleStep(4 * letter_);
  viewport()->update();
}

int ProgramView::LineOnTop() const { return text_->LineAt(verticalScrollBar()->value()); }

int ProgramView::LineUnder(int y) const {
  const int row = verticalScrollBar()->value() + y / kRow;
  return text_->LineAt(std::clamp(row, 0, std::max(0, text_->Rows() - 1)));
}

void ProgramView::Reveal() {
  const int row = text_->RowOf(line_), top = verticalScrollBar()->value();
  if (row < top) verticalScrollBar()->setValue(row);
  if (row >= top + RowsInView()) verticalScrollBar()->setValue(row - RowsInView() + 1);
}

// A screen reader hears the present line.
void ProgramView::Tell() {
  setAccessibleName(QStringLiteral("Line %1: %2").arg(line_).arg(ForTheEye(text_->Line(line_))));
  viewport()->update();
  if (moved) moved();
}

void ProgramView::Move(int line, bool extends) {
  line_ = std::clamp(line, 1, std::max(1, text_->Lines()));
  if (!extends) anchor_ = line_;
  Reveal();
  Tell();
}

void ProgramView::GoTo(int line) {
  line = std::clamp(line, 1, std::max(1, text_->Lines()));
  if (text_->IsFolded(line) && text_->Away(line) == 0) Fold(line, false);
  const int row = text_->RowOf(line), top = verticalScrollBar()->value();
  if (row < top || row >= top + RowsInView()) verticalScrollBar()->setValue(row - RowsInView() / 3);
  Move(line, false);
}

void ProgramView::Fold(int line, bool folded) {
  text_->Fold(line, folded);
  // The present line is never one that is away.
  line_ = anchor_ = text_->LineAt(text_->RowOf(line_));
  Fit();
  Reveal();
  Tell();
}

void ProgramView::FoldLayers(bool folded) {
  text_->FoldLayers(folded);
  line_ = anchor_ = text_->LineAt(text_->RowOf(line_));
  Fit();
  Reveal();
  Tell();
}

bool ProgramView::Find(const QString& words, bool forward, bool fromHere) {
  found_ = Taken(words).value_or("");
  const int from = fromHere ? line_ + (forward ? -1 : 1) : line_;
  const auto line = text_->Lines() == 0 ? std::nullopt : text_->Find(found_, from, forward);
  if (line) GoTo(*line);
  viewport()->update();
  return line.has_value();
}

QString ProgramView::Chosen() const {
  QString lines;
  const auto [first, last] = std::minmax(line_, anchor_);
  for (int line = first; line <= last; ++line) lines += Shown(text_->Line(line)) + QLatin1Char('\n');
  return lines;
}

void ProgramView::PaintLine(QPainter& p, int line, int y) const {
  const Theme& t = theme_;
  const auto [first, last] = std::minmax(line_, anchor_);
  const QRect row(0, y, viewport()->width(), kRow);
  if (line >= first && line <= last) p.fillRect(row, t[Token::Selected]);
  const std::string_view words = text_->Line(line).substr(0, kLongest);
  const int from = gutter_ + kBeside - horizontalScrollBar()->value();
  const auto place = [&](std::size_t at) { return from + static_cast<int>(at) * letter_; };
  const auto found = found_.empty() ? std::string_view::npos : PlaceOf(found_, words);
  for (const Piece& piece : PiecesOf(words)) {
    if (place(piece.at) > viewport()->width() || place(piece.at + piece.length) < gutter_) continue;
    QFont font = mono_;
    if (piece.ink == Ink::Head) font.setWeight(QFont::Bold);
    p.setFont(font);
    p.setPen(t[TokenOf(piece.ink)]);
    p.drawText(QPoint(place(piece.at), y + kRow - 6), ForTheEye(words.substr(piece.at, piece.length)));
  }
  if (found != std::string_view::npos) {
    p.fillRect(place(found), y + 1, static_cast<int>(found_.size()) * letter_, kRow - 2,
               t[Token::NeedsGround]);
    p.setFont(mono_);
    p.setPen(t[Token::NeedsText]);
    p.drawText(QPoint(place(found), y + kRow - 6), ForTheEye(words.substr(found, found_.size())));
  }
  if (const int away = text_->Away(line); away > 0) {
    p.setFont(t.Font(12));
    p.setPen(t[Token::Figures]);
    p.drawText(QPoint(place(words.size() + 2), y + kRow - 6), QStringLiteral("%1 lines folded").arg(away));
  }
  p.fillRect(0, y, gutter_, kRow, t[line >= first && line <= last ? Token::Selected : Token::ReadOut]);
  p.setFont(mono_);
  p.setPen(t[line == line_ ? Token::Text : Token::Second]);
  p.drawText(QRect(0, y, gutter_ - kBeside, kRow), Qt::AlignRight | Qt::AlignVCenter, QString::number(line));
  if (text_->BeginsSection(line))
    PaintIcon(p, text_->IsFolded(line) ? Icon::Right : Icon::Down, QRectF(4, y + 4, 12, 12),
              t[Token::Second]);
}

void ProgramView::paintEvent(QPaintEvent*) {
  QPainter p(viewport());
  p.setRenderHint(QPainter::Antialiasing);
  p.fillRect(viewport()->rect(), theme_[Token::Panel]);
  const int top = verticalScrollBar()->value();
  for (int row = top; row < text_->Rows() && (row - top) * kRow < viewport()->height(); ++row)
    PaintLine(p, text_->LineAt(row), (row - top) * kRow);
  p.setPen(theme_[Token::Hairline]);
  p.drawLine(gutter_, 0, gutter_, viewport()->height());
  if (hasFocus()) PaintFocus(p, theme_[Token::Focus], Inset(viewport()->rect(), 1));
}

void ProgramView::resizeEvent(QResizeEvent*) { Fit(); }
void ProgramView::focusInEvent(QFocusEvent*) { viewport()->update(); }
void ProgramView::focusOutEvent(QFocusEvent*) { viewport()->update(); }

void ProgramView::keyPressEvent(QKeyEvent* event) {
  const bool extends = (event->modifiers() & Qt::ShiftModifier) != 0;
  const bool all = (event->modifiers() & Qt::ControlModifier) != 0;
  const auto toRow = [&](int by) {
    const int row = std::clamp(text_->RowOf(line_) + by, 0, std::max(0, text_->Rows() - 1));
    Move(text_->LineAt(row), extends);
  };
  if (event->matches(QKeySequence::Copy)) return QApplication::clipboard()->setText(Chosen());
  if (event->matches(QKeySequence::SelectAll)) {
    anchor_ = 1;
    return Move(text_->Lines(), true);
  }
  switch (event->key()) {
    case Qt::Key_Up:
      return toRow(-1);
    case Qt::Key_Down:
      return toRow(1);
    case Qt::Key_PageUp:
      return toRow(-RowsInView());
    case Qt::Key_PageDown:
      return toRow(RowsInView());
    case Qt::Key_Home:
      return all ? Move(1, extends) : horizontalScrollBar()->setValue(0);
    case Qt::Key_End:
      return all ? toRow(text_->Rows()) : horizontalScrollBar()->setValue(horizontalScrollBar()->maximum());
    case Qt::Key_Left:
      return Fold(line_, true);
    case Qt::Key_Right:
      return Fold(line_, false);
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void ProgramView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int line = LineUnder(event->position().toPoint().y());
  if (event->position().x() < kArrow && text_->BeginsSection(line)) return Fold(line, !text_->IsFolded(line));
  Move(line, (event->modifiers() & Qt::ShiftModifier) != 0);
}

void ProgramView::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) == 0) return;
  Move(LineUnder(event->position().toPoint().y()), true);
}

void ProgramView::mouseDoubleClickEvent(QMouseEvent* event) {
  const int line = LineUnder(event->position().toPoint().y());
  if (text_->BeginsSection(line)) Fold(line, !text_->IsFolded(line));
}

}  // namespace torvane
