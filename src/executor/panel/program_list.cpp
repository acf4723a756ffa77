#include "executor/panel/program_list.h"

#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "executor/session/words.h"
#include "look/paint.h"

namespace torvane::dryrun {

using executor::Level;
using executor::RunState;

namespace {

constexpr int kLine = 22, kGutter = 67;

}  // namespace

ProgramList::ProgramList(Stand stand, QWidget* parent)
    : RowPanel(stand, QStringLiteral("Program"), kLine, parent),
      mono_(MonoFont(12)),
      follow_(
          new PlainButton(stand.theme, ButtonLook::Flat, Icon::None, QStringLiteral("Follow the run"), this)),
      open_(new PlainButton(stand.theme, ButtonLook::Outline, Icon::Open, QStringLiteral("Open a program"),
                            this)),
      cancel_(
          new PlainButton(stand.theme, ButtonLook::Outline, Icon::Cross, QStringLiteral("Cancel"), this)) {
  setObjectName(QStringLiteral("programList"));
  viewport()->setMouseTracking(true);
  follow_->setObjectName(QStringLiteral("followButton"));
  follow_->setFixedHeight(28);
  open_->setObjectName(QStringLiteral("openHere"));
  open_->setFixedHeight(42);
  for (const auto& [button, tip] :
       {std::pair(follow_, QStringLiteral("Brings the running line back into view")),
        std::pair(open_, QStringLiteral("Asks for a winding program and reads it (Ctrl+O)")),
        std::pair(cancel_, QStringLiteral("Gives up reading this program"))}) {
    button->setAccessibleName(button->text());
    button->setAccessibleDescription(tip);
    button->setToolTip(tip);
  }
  cancel_->setObjectName(QStringLiteral("cancelOpening"));
  cancel_->setFixedHeight(42);
  connect(cancel_, &PlainButton::clicked, this, [this] { stand_.session.Cancel(); });
  connect(&stand.session, &Session::Worked, this, [this] {
    if (stand_.player().program() != nullptr) return;
    SetFollows(follows_);
    viewport()->update();
  });
  connect(&stand.session, &Session::Sought, this, [this] { SetFollows(true); });
  connect(follow_, &PlainButton::clicked, this, [this] { SetFollows(true); });
  connect(open_, &PlainButton::clicked, this, [this] { openAsked(); });
  connect(&stand.session, &Session::Opened, this, [this] {
    marks_.clear();
    shown_ = 0;
    FitLines();
    SetFollows(true);
  });
  connect(&stand.session, &Session::Played, this, [this] {
    FollowRun();
    update();
    viewport()->update();
  });
  connect(&stand.session, &Session::Proven, this, [this] {
    marks_.clear();
    for (const executor::Remark& remark : stand_.session.remarks())
      if (remark.line > 0 && remark.level != Level::Ok) {
        Level& mark = marks_[remark.line];
        mark = std::max(mark, remark.level);
      }
    viewport()->update();
  });
  FitLines();
  SetFollows(true);
}

int ProgramList::FirstLineShown() const { return RowAt(0) + 1; }

void ProgramList::ShowLine(int line) {
  shown_ = line;
  SetFollows(false);
  scrolling_ = true;
  verticalScrollBar()->setValue((line - 1) * kLine - (viewport()->height() - kLine) / 2);
  scrolling_ = false;
  viewport()->update();
}

void ProgramList::SetFollows(bool follows) {
  follows_ = follows;
  if (follows) shown_ = 0;
  const auto* program = stand_.player().program();
  follow_->setVisible(!follows && program != nullptr);
  const bool opening = stand_.session.work() == Session::Work::Opening;
  open_->setVisible(program == nullptr && !opening);
  cancel_->setVisible(program == nullptr && opening);
  FollowRun();
  update();
}

// The running line stands in the middle, so that what comes and what has been can be read.
void ProgramList::FollowRun() {
  if (!follows_) return;
  const int line = std::max(1, stand_.player().LineNow());
  const int rows = viewport()->height() / kLine;
  scrolling_ = true;
  verticalScrollBar()->setValue((line - 1 - rows / 2) * kLine);
  scrolling_ = false;
}

void ProgramList::scrollContentsBy(int, int) {
  if (!scrolling_ && follows_) SetFollows(false);
  viewport()->update();
}

void ProgramList::FitLines() {
  const auto* program = stand_.player().program();
  scrolling_ = true;
  Fit(program == nullptr ? 0 : program->Lines() * kLine);
  scrolling_ = false;
}

void ProgramList::resizeEvent(QResizeEvent*) {
  FitLines();
  FollowRun();
  const QSize follow = follow_->sizeHint();
  follow_->setGeometry(84, 4, follow.width(), 28);
  const QSize open = open_->sizeHint();
  for (PlainButton* button : {open_, cancel_})
    button->setGeometry((width() - open.width() - 16) / 2, height() / 2 + 10, open.width() + 16, 42);
}

QString ProgramList::TipOf(int row) const {
  const auto* program = stand_.player().program();
  const int line = row + 1;
  QString tip = program == nullptr ? QString() : Words(program->Line(line));
  for (const executor::Remark& remark : stand_.session.remarks())
    if (remark.line == line && remark.level != Level::Ok) tip += QStringLiteral("\n") + Words(remark.text);
  return tip;
}

void ProgramList::PaintLine(QPainter& p, const QRect& row, int number) const {
  const Theme& t = stand_.theme;
  const executor::Player& player = stand_.player();
  const bool now = number == player.LineNow(), past = number < player.LineNow();
  if (now) {
    p.fillRect(row, t[Token::Accent]);
  } else if (number == shown_) {
    p.fillRect(row, t[Token::Selected]);
  }
  const Token plain = now ? Token::OnAccent : past ? Token::Second : Token::Text;
  const Token comment = now ? Token::OnAccent : past ? Token::Off : Token::Second;
  const QRectF glyph(row.left() + 6, row.center().y() - 7, 14, 14);
  const auto mark = marks_.find(number);
  if (mark != marks_.end())
    PaintIcon(p, GlyphOf(mark->second), glyph, now ? t[Token::OnAccent] : t[InkOf(mark->second)]);
  else if (now)
    PaintIcon(p, Icon::Play, Inset(glyph, 1), t[Token::OnAccent]);
  p.setFont(mono_);
  p.setPen(t[now ? Token::OnAccent : Token::Off]);
  p.drawText(QRect(row.left(), row.top(), kGutter - 6, kLine), Qt::AlignRight | Qt::AlignVCenter,
             QString::number(number));
  const std::string_view text = player.program()->Line(number);
  const auto bracket = std::min(text.find('['), text.size());
  constexpr std::size_t kLongest = 400;
  const QString statement = Words(text.substr(0, std::min(bracket, kLongest)));
  p.setPen(t[plain]);
  int x = row.left() + kGutter + 8;
  const auto draw = [&](const QString& words) {
    p.drawText(QRect(x, row.top(), row.right() - x, kLine), Qt::AlignVCenter,
               p.fontMetrics().elidedText(words, Qt::ElideRight, row.right() - x - 2));
  };
  draw(statement);
  x += p.fontMetrics().horizontalAdvance(statement);
  if (x >= row.right() || bracket == text.size()) return;
  p.setPen(t[comment]);
  draw(Words(text.substr(bracket, kLongest)));
}

void ProgramList::PaintEmpty(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QRect box = viewport()->rect();
  const bool opening = stand_.session.work() == Session::Work::Opening;
  p.setPen(t[Token::Text]);
  p.setFont(t.Font(15, Weight::Medium));
  p.drawText(box.adjusted(0, 0, 0, -box.height() / 2 - 44), Qt::AlignHCenter | Qt::AlignBottom,
             opening ? QStringLiteral("Reading the program") : QStringLiteral("No program is open"));
  p.setPen(t[Token::Second]);
  p.setFont(t.Font(13));
  p.drawText(box.adjusted(16, 0, -16, -box.height() / 2 - 16), Qt::AlignHCenter | Qt::AlignBottom,
             opening ? QStringLiteral("%1 % done").arg(static_cast<int>(stand_.session.WorkShare() * 100))
                     : QStringLiteral("The station opens one here at every build."));
}

void ProgramList::paintEvent(QPaintEvent*) {
  const Theme& t = stand_.theme;
  const executor::Player& player = stand_.player();
  QPainter p(viewport());
  if (player.program() == nullptr) return PaintEmpty(p);
  for (int row = RowAt(0); row < player.program()->Lines() && BoxOf(row).top() < viewport()->height(); ++row)
    PaintLine(p, BoxOf(row), row + 1);
  p.setPen(t[Token::Hairline]);
  p.drawLine(kGutter, 0, kGutter, viewport()->height());
}

void ProgramList::PaintHead(QPainter& p) {
  const Theme& t = stand_.theme;
  const executor::Player& player = stand_.player();
  if (player.program() == nullptr) return;
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  const int lines = player.program()->Lines();
  p.drawText(QRect(0, 0, width() - 14, kHead), Qt::AlignRight | Qt::AlignVCenter,
             player.LineNow() > 0 ? QStringLiteral("line %1 of %2").arg(player.LineNow()).arg(lines)
                                  : QStringLiteral("%1 lines").arg(lines));
}

}  // namespace torvane::dryrun
