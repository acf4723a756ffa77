#include <QFile>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextList>
#include <QTextTable>

#include "window/reader/guide_window.h"

namespace torvane {

namespace {

constexpr int kMargin = 24;  // the text's margin
constexpr int kAbove = 8;    // a heading that was gone to

template <class Visit>
void ForEachTable(QTextFrame& frame, Visit visit) {
  for (QTextFrame* child : frame.childFrames()) {
    if (auto* table = qobject_cast<QTextTable*>(child)) visit(*table);
    ForEachTable(*child, visit);
  }
}

}  // namespace

GuideText::GuideText(const Theme& theme, QWidget* parent) : QTextBrowser(parent), theme_(theme) {
  setObjectName(QStringLiteral("guideText"));
  setAccessibleName(QStringLiteral("The guide's text"));
  setFrameShape(QFrame::NoFrame);
  setOpenLinks(false);
  setTabChangesFocus(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

bool GuideText::Read(const QString& folder) {
  QFile file(folder + QStringLiteral("/operator-guide.md"));
  const bool read = !folder.isEmpty() && file.open(QIODevice::ReadOnly);
  document()->setBaseUrl(QUrl::fromLocalFile(folder + QLatin1Char('/')));
  setMarkdown(read ? QString::fromUtf8(file.readAll())
                   : QStringLiteral("# The guide is not there\n\nIt is looked for as `operator-guide.md` in "
                                    "the folder `share/torvane/guide` of the installation, or in `docs` "
                                    "beside the program. Installing the station again brings it back."));
  headings_.clear();
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
    if (const int level = block.blockFormat().headingLevel(); level > 0)
      headings_.push_back({block.text(), level, block.position()});
  Dress();
  return read;
}

void GuideText::Dress() {
  setFont(theme_.Font(14));
  document()->setDefaultFont(theme_.Font(14));
  document()->setDocumentMargin(kMargin);
  QPalette colours = theme_.Palette();
  colours.setColor(QPalette::Base, theme_[Token::Panel]);
  setPalette(colours);
  QTextCursor cursor(document());
  cursor.beginEditBlock();
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    cursor.setPosition(block.position());
    if (cursor.currentTable() != nullptr) continue;
    QTextBlockFormat spaced;
    spaced.setTopMargin(0);
    spaced.setBottomMargin(block.textList() != nullptr ? 4 : 10);
    // A paragraph behind a list keeps its distance too.
    if (block.textList() == nullptr && block.previous().textList() != nullptr) spaced.setTopMargin(8);
    cursor.mergeBlockFormat(spaced);
  }
  for (const Heading& heading : headings_) {
    cursor.setPosition(heading.position);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    QTextBlockFormat block;
    block.setTopMargin(heading.level == 2 ? 26 : 16);
    block.setBottomMargin(8);
    cursor.mergeBlockFormat(block);
    QTextCharFormat letters;
    letters.setFont(theme_.Font(heading.level == 1 ? 26 : heading.level == 2 ? 20 : 16, Weight::Medium));
    letters.setForeground(theme_[heading.level == 3 ? Token::Figures : Token::Text]);
    cursor.setCharFormat(letters);
  }
  cursor.endEditBlock();
  ForEachTable(*document()->rootFrame(), [&](QTextTable& table) {
    QTextTableFormat format = table.format();
    format.setBorder(1);
    format.setBorderBrush(theme_[Token::Hairline]);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setCellPadding(6);
    format.setCellSpacing(0);
    format.setBottomMargin(10);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    table.setFormat(format);
    for (int column = 0; column < table.columns(); ++column) {
      QTextTableCell head = table.cellAt(0, column);
      QTextCharFormat cell = head.format();
      cell.setBackground(theme_[Token::TableHead]);
      head.setFormat(cell);
    }
  });
  FitPictures();
}

// No wider than the text.
void GuideText::FitPictures() {
  QTextCursor cursor(document());
  cursor.beginEditBlock();
  const int room = std::max(200, viewport()->width() - 2 * kMargin);
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      if (!part.fragment().charFormat().isImageFormat()) continue;
      QTextImageFormat picture = part.fragment().charFormat().toImageFormat();
      const QString path = document()->baseUrl().resolved(QUrl(picture.name())).toLocalFile();
      const int width = std::min(room, std::max(1, QImage(path).width()));
      if (static_cast<int>(picture.width()) == width) continue;
      picture.setWidth(width);
      cursor.setPosition(part.fragment().position());
      cursor.setPosition(part.fragment().position() + part.fragment().length(), QTextCursor::KeepAnchor);
      cursor.setCharFormat(picture);
      break;  // the block's parts have been made anew
    }
  cursor.endEditBlock();
}

void GuideText::resizeEvent(QResizeEvent* event) {
  const int first = cursorForPosition({kMargin, kAbove + 4}).position();
  QTextBrowser::resizeEvent(event);
  FitPictures();
  document()->size();
  QTextCursor kept(document());
  kept.setPosition(first);
  verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(kept).top() - kAbove);
}

int GuideText::HeadingAt(int position) const {
  int at = 0;
  for (std::size_t i = 0; i < headings_.size(); ++i)
    if (headings_[i].position <= position) at = static_cast<int>(i);
  return at;
}

void GuideText::Mark(const QTextCursor& place) {
  QTextEdit::ExtraSelection mark;
  mark.cursor = place;
  mark.format.setBackground(theme_[Token::NeedsGround]);
  mark.format.setForeground(theme_[Token::NeedsText]);
  setExtraSelections({mark});
}

void GuideText::ShowHeading(int heading, const QString& word) {
  if (headings_.empty()) return;
  document()->size();  // places are known once all is laid out
  const auto place = static_cast<std::size_t>(std::clamp(heading, 0, static_cast<int>(headings_.size()) - 1));
  QTextCursor cursor(document());
  cursor.setPosition(headings_[place].position);
  setTextCursor(cursor);
  verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(cursor).top() - kAbove);
  setExtraSelections({});
  if (word.isEmpty()) return;
  const QTextCursor named = document()->find(word, cursor);
  const bool under = !named.isNull() && HeadingAt(named.position()) == static_cast<int>(place);
  if (!under) return;
  Mark(named);
  setTextCursor(QTextCursor(named.block()));
  // The heading stays in view where it can.
  ensureCursorVisible();
}

int GuideText::Search(const QString& words, bool forward) {
  setExtraSelections({});
  if (words.isEmpty()) return 0;
  int count = 0;
  for (QTextCursor at = document()->find(words); !at.isNull(); at = document()->find(words, at)) ++count;
  if (count == 0) return 0;
  const QTextDocument::FindFlags back = forward ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
  if (!find(words, back)) {
    moveCursor(forward ? QTextCursor::Start : QTextCursor::End);
    find(words, back);
  }
  Mark(textCursor());
  return count;
}

}  // namespace torvane
