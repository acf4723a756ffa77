// The platform's questions as dialogs of the window.
#pragma once

#include <QDialog>

#include "look/icons.h"
#include "look/theme.h"
#include "platform/dialogs.h"

class QFileDialog;

namespace torvane {

// A message as it is shown; also for looking at one without asking.
struct MessageView {
  QString title, text;
  int number = 0;  // none: 0
  bool okOnly = true;
  bool offer = false;
  Icon icon = Icon::Info;
  Token ink = Token::Accent;
  QString tick = QStringLiteral("Don't Show this Message Again");
  QString hint = {};
};
MessageView ViewOf(const Message& message);

// Above all other windows. Y and N press their buttons; Esc and the cross are No, or OK of a notice.
class MessageWindow : public QDialog {
 public:
  // `ticked` runs when the operator ticks the offered box, or takes the tick away.
  MessageWindow(const Theme& theme, const MessageView& view, const std::function<void(bool on)>& ticked,
                QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddBar(const std::function<void(bool on)>& ticked);

  const Theme& theme_;
  MessageView view_;
  int ground_ = 0;  // where the bar of the buttons begins
};

class QtMessageDialog : public MessageDialog {
 public:
  explicit QtMessageDialog(const Theme& theme) : theme_(theme) {}
  bool Ask(const Message& message) override;

 private:
  const Theme& theme_;
};

class QtMessageBox : public MessageBox {
 public:
  explicit QtMessageBox(const Theme& theme) : theme_(theme) {}
  void Show(std::string_view title, std::string_view text, BoxIcon icon,
            std::string_view detail = {}) override;

 private:
  const Theme& theme_;
};

// A name that the operator chose is none that the station can use.
void TellRefusedName(MessageBox& box, std::string_view reason);

class QtFileDialog : public FileDialog {
 public:
  explicit QtFileDialog(MessageBox& box) : box_(box) {}
  std::optional<std::string> AskOpen(std::string_view filter, std::string_view folder) override;
  std::optional<std::string> AskSave(std::string_view filter, std::string_view folder,
                                     std::string_view proposedName) override;

 private:
  std::optional<std::string> Ask(QFileDialog& dialog);

  MessageBox& box_;
};

}  // namespace torvane
