#include "look/text.h"

#include "host/code_page.h"

namespace torvane {

QString Shown(std::string_view stationText) { return QString::fromStdString(ToUtf8(stationText)); }

std::optional<std::string> Taken(const QString& text) {
  const Result<std::string> taken = FromUtf8(text.toStdString());
  if (!taken) return std::nullopt;
  return taken.value();
}

}  // namespace torvane
