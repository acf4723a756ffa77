#include "executor/program/reader.h"

#include <algorithm>

#include "executor/program/number.h"

namespace torvane::executor {

namespace {

std::string_view Trimmed(std::string_view text) {
  const auto from = text.find_first_not_of(" \t");
  if (from == std::string_view::npos) return {};
  return text.substr(from, text.find_last_not_of(" \t") - from + 1);
}

// Display texts carry the sign of the writing computer; read either.
double Value(std::string_view text) { return ReadNumber(text, ',').value_or(0); }

// "2_of_4", or "2".
void ReadCounted(std::string_view text, double& number, double& total) {
  const auto of = text.find("_of_");
  number = Value(text.substr(0, of));
  total = of == std::string_view::npos ? 0 : Value(text.substr(of + 4));
}

void TakeField(std::string_view key, std::string_view value, Display& display) {
  if (key == "LA") {
    display.hasLayer = true;
    ReadCounted(value, display.layer, display.layers);
  } else if (key == "PA") {
    ReadCounted(value, display.pass, display.passes);
  } else if (key == "FW") {
    display.hasBand = true;
    display.bandInches = Value(value);
  } else if (key == "LD") {
    display.leftDiameter = Value(value);
  } else if (key == "HL") {
    display.stop = Value(value);
  } else if (key == "WM") {
    display.method = value;
  } else if (key == "RPM") {
    display.rpm = value;
  } else if (key == "CS") {
    display.carriageSpeed = value;
  } else if (key == "WA") {
    display.windingAngle = value;
  } else if (key == "TI") {
    display.minutesLeft = value;
  } else if (key == "ST") {
    display.stage = value;
  }
}

}  // namespace

bool Reader::Next(Line& line) {
  if (rest_.empty()) return false;
  const auto end = rest_.find('\n');
  line.text = rest_.substr(0, end);
  rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
  if (!line.text.empty() && line.text.back() == '\r') line.text.remove_suffix(1);
  line.number = ++number_;
  const auto bracket = std::min(line.text.find('['), line.text.size());
  line.comment = line.text.substr(bracket);
  const std::string_view statement = Trimmed(line.text.substr(0, bracket));
  line.trouble.clear();
  if (statement.empty()) {
    line.kind = Line::Kind::Blank;
    return true;
  }
  const bool read = ReadStatement(statement, decimal_, line.statement, line.trouble);
  line.kind = read ? Line::Kind::Statement : Line::Kind::Unreadable;
  if (read && line.statement.command == Command::NumberForm)
    decimal_ = line.statement.words.At('C') == 1 ? ',' : '.';
  return true;
}

Display ReadDisplay(std::string_view body) {
  Display display;
  body = Trimmed(body);
  if (body.substr(0, 2) == "GM") {
    const auto equals = body.find('=');
    if (equals != std::string_view::npos) display.message = Trimmed(body.substr(equals + 1));
    return display;
  }
  // A field's value runs to the next word that holds an equals sign: "WM=4AX HOOP TI=0".
  while (!body.empty()) {
    const auto equals = body.find('=');
    if (equals == std::string_view::npos) break;
    const std::string_view key = Trimmed(body.substr(0, equals));
    const std::string_view rest = body.substr(equals + 1);
    const auto next = rest.find('=');
    std::size_t end = rest.size();
    if (next != std::string_view::npos) {
      const auto blank = rest.find_last_of(" \t", next);
      end = blank == std::string_view::npos ? rest.size() : blank;
    }
    TakeField(key, Trimmed(rest.substr(0, end)), display);
    body = end == rest.size() ? std::string_view() : Trimmed(rest.substr(end));
  }
  return display;
}

}  // namespace torvane::executor
