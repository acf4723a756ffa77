// Questions to the operator. Each returns when it has been answered.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace torvane {

// The station's own numbered message.
struct Message {
  std::string text;
  int number = 0;
  bool okOnly = false;  // one button, OK; else Yes and No
  bool beep = false;
  bool offer = false;  // shows a box to tick, "Don't Show this Message Again" unless `tick` names it
  // Set off by each tick of that box and each that is taken away, while the message still stands.
  std::function<void(bool on)> ticked;
  std::string tick = {};
  // Ours, below the text: what the answers come to.
  std::string hint = {};
};

class MessageDialog {
 public:
  virtual ~MessageDialog() = default;
  // True for Yes. OK, No and the window's cross are False.
  virtual bool Ask(const Message& message) = 0;
};

enum class BoxIcon { None, Stop, Information };

// A plain box of the system with one OK button.
class MessageBox {
 public:
  virtual ~MessageBox() = default;
  // `detail` stands below the text: what the computer says of it. Empty for none.
  virtual void Show(std::string_view title, std::string_view text, BoxIcon icon,
                    std::string_view detail = {}) = 0;
};

// Asks for a file. `filter` is a row of caption and pattern, each ended by "|". Nothing if cancelled.
class FileDialog {
 public:
  virtual ~FileDialog() = default;
  virtual std::optional<std::string> AskOpen(std::string_view filter, std::string_view folder) = 0;
  virtual std::optional<std::string> AskSave(std::string_view filter, std::string_view folder,
                                             std::string_view proposedName) = 0;
};

}  // namespace torvane
