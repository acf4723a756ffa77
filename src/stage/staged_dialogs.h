// The operator's part, played from queues. What was shown is remembered, and told to the observer before it
// is answered.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"

namespace torvane {

class StagedMessageDialog : public MessageDialog {
 public:
  struct Answer {
    bool yes = false;
    bool noShow = false;  // ticks "Don't Show this Message Again" first, where it is offered
  };

  // Takes the next queued answer; with none queued a notice gets OK and a question No.
  bool Ask(const Message& message) override;

  std::deque<Answer> answers;
  std::vector<Message> shown;
  std::function<void(const Message&)> observer;
};

class StagedMessageBox : public MessageBox {
 public:
  struct Box {
    std::string title, text;
    BoxIcon icon = BoxIcon::None;
    std::string detail;
  };

  void Show(std::string_view title, std::string_view text, BoxIcon icon, std::string_view detail) override;

  std::vector<Box> shown;
  std::function<void(const Box&)> observer;
};

class StagedFileDialog : public FileDialog {
 public:
  struct Request {
    bool save = false;
    std::string filter, folder, proposedName;
  };

  // The next queued answer, nothing being Cancel; with none queued it is cancelled.
  std::optional<std::string> AskOpen(std::string_view filter, std::string_view folder) override;
  std::optional<std::string> AskSave(std::string_view filter, std::string_view folder,
                                     std::string_view proposedName) override;

  std::deque<std::optional<std::string>> answers;
  std::vector<Request> asked;
  std::function<void(const Request&)> observer;

 private:
  std::optional<std::string> Answered(const Request& request);
};

}  // namespace torvane
