#include "look/text.h"

#include <QTextDocument>

#include "text/code_page.h"

namespace torvane {

QString Shown(std::string_view stationText) { return QString::fromStdString(ToUtf8(stationText)); }

QString PlainTip(const QString& text) {
  return text.contains(QLatin1Char('<')) || text.contains(QLatin1Char('&')) ? Qt::convertFromPlainText(text)
                                                                            : text;
}

std::optional<std::string> Taken(const QString& text) {
  const Result<std::string> taken = FromUtf8(text.toStdString());
  if (!taken) return std::nullopt;
  return taken.value();
}

}  // namespace torvane
