#include "window/door/file_drops.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QUrl>

namespace torvane {

namespace {

// Empty if not just one file of this computer is dragged: one design is open at a time.
std::string DraggedFile(const QDropEvent& drag) {
  const QList<QUrl> urls = drag.mimeData()->urls();
  return urls.size() == 1 ? urls[0].toLocalFile().toStdString() : "";
}

bool TakesFiles(const QWidget& window) {
  const Qt::WindowType type = window.windowType();
  return type != Qt::Popup && type != Qt::ToolTip && qobject_cast<const QFileDialog*>(&window) == nullptr;
}

}  // namespace

FileDrops::FileDrops(std::function<void(const std::string& path)> dropped) : dropped_(std::move(dropped)) {
  qApp->installEventFilter(this);
}

bool FileDrops::eventFilter(QObject* receiver, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool drop = type == QEvent::Drop;
  const bool drag = drop || type == QEvent::DragEnter || type == QEvent::DragMove;
  if (!drag && type != QEvent::Show) return false;
  auto* widget = qobject_cast<QWidget*>(receiver);
  if (widget == nullptr || !TakesFiles(*widget->window())) return false;
  if (!drag) {
    if (widget->isWindow()) widget->setAcceptDrops(true);
    return false;
  }
  auto* dragged = static_cast<QDropEvent*>(event);
  const std::string path = DraggedFile(*dragged);
  if (path.empty()) return false;
  // Never moved: the file stays where it is.
  dragged->setDropAction(Qt::CopyAction);
  dragged->accept();
  if (drop) dropped_(path);
  return true;
}

}  // namespace torvane
