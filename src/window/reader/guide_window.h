// The operator's guide in a window: its contents at the left, its text at the right, and a search.
#pragma once

#include <QTextBrowser>
#include <vector>

#include "look/button.h"

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace torvane {

// The guide's text, dressed in the window's colours.
class GuideText : public QTextBrowser {
 public:
  GuideText(const Theme& theme, QWidget* parent);

  // `folder` holds operator-guide.md and its pictures. False, with a sentence in its place, where it cannot
  // be read.
  bool Read(const QString& folder);
  void Dress();

  struct Heading {
    QString words;
    int level;
    int position;  // in the document
  };
  const std::vector<Heading>& headings() const { return headings_; }
  // The last heading at or before a place of the document.
  int HeadingAt(int position) const;
  // Puts the heading at the upper edge; with `word`, the first place under it that names it, if there is one.
  void ShowHeading(int heading, const QString& word);
  // Marks the next place that holds the words, from the end on from the beginning; the number of all of them.
  int Search(const QString& words, bool forward);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitPictures();
  void Mark(const QTextCursor& place);

  const Theme& theme_;
  std::vector<Heading> headings_;
};

class GuideWindow : public QWidget {
 public:
  // A window of its own over `parent`. `folder` is where the guide lies.
  GuideWindow(const Theme& theme, const QString& folder, QWidget* parent);

  // Opens it at a heading, and there at the first place that names `word`. Another heading than those of the
  // guide leads to its beginning.
  void ShowAt(const QString& heading, const QString& word = {});
  const GuideText& text() const { return *text_; }

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Place {
    int heading;
    QString word;
  };
  QWidget* MakeBar();
  PlainButton* AddButton(const char* name, Icon icon, const QString& caption, const QString& tip,
                         const std::function<void()>& does);
  void FillContents();
  void Go(const Place& place);
  void Step(int by);
  void Search(bool forward);
  void FollowScroll();

  const Theme& theme_;
  GuideText* text_;
  QTreeWidget* contents_;
  QLineEdit* search_ = nullptr;
  PlainButton *back_ = nullptr, *on_ = nullptr;
  QLabel* found_ = nullptr;
  std::vector<Place> visited_;
  std::size_t now_ = 0;  // among them
  std::vector<QTreeWidgetItem*> items_;
};

}  // namespace torvane
