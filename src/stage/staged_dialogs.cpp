#include "stage/staged_dialogs.h"

namespace torvane {

bool StagedMessageDialog::Ask(const Message& message) {
  shown.push_back(message);
  shown.back().ticked = nullptr;  // ends with the question
  if (observer) observer(message);
  Answer answer;
  if (!answers.empty()) {
    answer = answers.front();
    answers.pop_front();
  }
  if (answer.noShow && message.offer && message.ticked) message.ticked(true);
  return answer.yes && !message.okOnly;
}

void StagedMessageBox::Show(std::string_view title, std::string_view text, BoxIcon icon,
                            std::string_view detail) {
  shown.push_back({std::string(title), std::string(text), icon, std::string(detail)});
  if (observer) observer(Box(shown.back()));
}

std::optional<std::string> StagedFileDialog::AskOpen(std::string_view filter, std::string_view folder) {
  return Answered({false, std::string(filter), std::string(folder), ""});
}

std::optional<std::string> StagedFileDialog::AskSave(std::string_view filter, std::string_view folder,
                                                     std::string_view proposedName) {
  return Answered({true, std::string(filter), std::string(folder), std::string(proposedName)});
}

std::optional<std::string> StagedFileDialog::Answered(const Request& request) {
  asked.push_back(request);
  if (observer) observer(request);
  if (answers.empty()) return std::nullopt;
  auto answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

}  // namespace torvane
