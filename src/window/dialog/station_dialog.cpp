#include "window/dialog/station_dialog.h"

#include <QBoxLayout>
#include <algorithm>

#include "look/text.h"
#include "window/field/button.h"

namespace torvane {

StationDialog::StationDialog(Desk desk, Window& window, const QString& title, QWidget* parent)
    : QDialog(parent), desk_(desk), window_(window) {
  setObjectName(QString::fromLatin1(window.name().data()));
  setWindowTitle(title);
}

Button* StationDialog::MakeButton(ButtonLook look, Icon icon, const char* control, int width,
                                  QWidget* owner) {
  auto* button = new Button(desk_, look, icon, Shown(Of(control).caption()), owner);
  button->Runs(control);
  button->setFixedSize(width, 40);
  button->SetTextSize(14);
  return button;
}

void StationDialog::FillFoot(QWidget* bar, const std::vector<Button*>& left) {
  bar->setFixedHeight(kFoot);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(16, 12, 16, 12);
  row->setSpacing(10);
  for (Button* button : left) row->addWidget(button);
  row->addStretch(1);
  row->addWidget(MakeButton(ButtonLook::Outline, Icon::None, "btnCancel", 112, bar));
  row->addWidget(MakeButton(ButtonLook::Filled, Icon::None, "btnOK", 112, bar));
}

DialogHost::DialogHost(Desk desk, QWidget* parent) : desk_(desk), parent_(parent) {
  desk.station.windows.closes = [this](const Window& window) { Drop(window); };
  desk.binder.BindAll(this, [this] { Follow(); });
}

DialogHost::~DialogHost() { desk_.station.windows.closes = nullptr; }

QWidget* DialogHost::DialogOf(const Window& window) const {
  const auto found = dialogs_.find(&window);
  return found == dialogs_.end() ? nullptr : found->second;
}

// At once: a message may come up before the doing that closes it has run to its end, and the next window may
// lie where this one did.
void DialogHost::Drop(const Window& window) {
  const auto found = dialogs_.find(&window);
  if (found == dialogs_.end()) return;
  found->second->hide();
  desk_.binder.Discard(found->second);
  dialogs_.erase(found);
}

void DialogHost::Follow() {
  for (std::size_t i = 0; i < desk_.station.windows.size(); ++i) {
    Window& window = desk_.station.windows[i];
    if (dialogs_.contains(&window)) continue;
    const Desk desk{desk_.station, desk_.binder, desk_.theme, &window};
    QWidget* made = nullptr;
    if (window.name() == "frmSettings") made = MakeSettingsWindow(desk, window, parent_);
    if (window.name() == "frmBigPic") made = MakePictureWindow(desk, window, parent_);
    if (window.name() == "frmAbout") made = MakeAboutWindow(desk, window, parent_);
    if (window.name() == "frmMachine") made = MakeMachineWindow(desk, window, parent_);
    if (window.name() == "frmPolar") made = MakePreviewWindow(desk, window, parent_);
    if (made == nullptr) {
      desk_.station.windows.Close(window);
      return;
    }
    // What opens over a modal window would be blocked by it, so it is modal in its turn.
    const bool overModal = std::any_of(dialogs_.begin(), dialogs_.end(),
                                       [](const auto& open) { return open.second->isModal(); });
    if (window.modal() || overModal) made->setWindowModality(Qt::ApplicationModal);
    dialogs_[&window] = made;
    made->show();
  }
}

}  // namespace torvane
