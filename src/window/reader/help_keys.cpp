#include "window/reader/help_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QWhatsThis>

#include "design/catalogue.h"
#include "look/text.h"
#include "window/field/help.h"
#include "window/grid/layers_view.h"
#include "window/reader/guide_topics.h"

namespace torvane {

namespace {

// A question or a dialog keeps the keyboard from every window that is not its own.
QWidget* OwnerOfGuide(QMainWindow& main) {
  QWidget* modal = QApplication::activeModalWidget();
  return modal == nullptr ? &main : modal;
}

std::string_view HeadingOf(const QWidget* widget) {
  if (widget == nullptr) return kWholeGuide;
  // A dialog's fields may bear names of the main window's.
  const QString window = widget->window()->objectName();
  if (const auto heading = HeadingAbout(window.toStdString()); !heading.empty() && heading != kWholeGuide)
    return heading;
  for (const QWidget* at = widget; at != nullptr && !at->isWindow(); at = at->parentWidget())
    if (const auto heading = HeadingAbout(at->objectName().toStdString()); !heading.empty()) return heading;
  return kWholeGuide;
}

}  // namespace

HelpKeys::HelpKeys(Desk desk, QMainWindow& main, const QString& guideFolder)
    : desk_(desk), main_(main), guideFolder_(guideFolder) {
  auto* help = main.findChild<QMenu*>(QStringLiteral("menuHelp"));
  QAction* before = help->actions().value(0);
  const auto add = [&](const char* name, const QString& caption, const QString& sentence,
                       const std::function<void()>& does) {
    auto* action = new QAction(caption, help);
    action->setObjectName(QString::fromLatin1(name));
    action->setToolTip(sentence);
    action->setStatusTip(sentence);
    connect(action, &QAction::triggered, this, does);
    help->insertAction(before, action);
  };
  add("mnuGuide", QStringLiteral("Operator's &Guide\tF1"),
      QStringLiteral("Opens the guide where it tells of what has the keyboard."),
      [this] { OpenGuide(QApplication::focusWidget()); });
  add("mnuSayWhat", QStringLiteral("&What's This\tShift+F1"),
      QStringLiteral("Then click anything in the window: it says what that is for."),
      [] { QWhatsThis::enterWhatsThisMode(); });
  help->insertSeparator(before);
  qApp->installEventFilter(this);
}

const Field* HelpKeys::FieldOf(QWidget* widget) const {
  if (widget == nullptr || !main_.isAncestorOf(widget) || widget->window() != &main_) return nullptr;
  for (QWidget* at = widget; at != nullptr && at != &main_; at = at->parentWidget()) {
    if (const auto* grid = dynamic_cast<LayersView*>(at)) return grid->layers().FieldAt(grid->currentIndex());
    const std::string name = at->objectName().toStdString();
    if (const Field* field = FindField(desk_.station.s, FieldNameOf(name))) return field;
  }
  return nullptr;
}

void HelpKeys::OpenGuide(QWidget* about) {
  if (guide_ != nullptr && about != nullptr && about->window() == guide_) return guide_->ShowAt({});
  const Field* field = FieldOf(about);
  std::string_view heading = HeadingOf(about);
  if (field != nullptr)
    if (const auto found = HeadingAbout(field->row().name); !found.empty()) heading = found;
  QWidget* owner = OwnerOfGuide(main_);
  if (guide_ != nullptr && guide_->parentWidget() != owner) delete guide_.data();
  if (guide_ == nullptr) guide_ = new GuideWindow(desk_.theme, guideFolder_, owner);
  guide_->ShowAt(Shown(heading), field == nullptr ? QString() : Shown(WordsOf(*field).name));
}

void HelpKeys::SayWhatThisIs(QWidget* widget) const {
  QString words;
  QRect place = widget->rect();
  if (const auto* grid = dynamic_cast<LayersView*>(widget)) {
    words = grid->layers().data(grid->currentIndex(), Qt::WhatsThisRole).toString();
    place = grid->visualRect(grid->currentIndex());
    widget = grid->viewport();
  }
  for (const QWidget* at = widget; words.isEmpty() && at != nullptr && !at->isWindow();
       at = at->parentWidget()) {
    words = at->whatsThis();
    if (!words.isEmpty() || at->accessibleName().isEmpty()) continue;
    const QString more =
        at->accessibleDescription().isEmpty() ? at->statusTip() : at->accessibleDescription();
    words = more.isEmpty() ? at->accessibleName() : at->accessibleName() + QLatin1Char('\n') + more;
  }
  if (!words.isEmpty()) QWhatsThis::showText(widget->mapToGlobal(place.bottomLeft()), words, widget);
}

bool HelpKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() != Qt::Key_F1 || QApplication::activePopupWidget() != nullptr) return false;
  auto* widget = static_cast<QWidget*>(watched);
  if (key->modifiers() == Qt::NoModifier)
    OpenGuide(widget);
  else if (key->modifiers() == Qt::ShiftModifier)
    SayWhatThisIs(widget);
  else
    return false;
  return true;
}

}  // namespace torvane
