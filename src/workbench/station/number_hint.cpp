#include "workbench/station/number_hint.h"

#include "design/catalogue.h"
#include "text/text.h"

namespace torvane {

std::string NumberHint(NumberSigns signs, std::string_view text) {
  if (text.find(signs.group()) == std::string_view::npos) return {};
  const Number value = ReadNumberText(signs, text);
  if (!value.good()) return {};
  const char* const decimal = signs.decimal == ',' ? "comma" : "point";
  return "\"" + std::string(Trim(text)) + "\" reads as " + NumberToText(signs, value.value()) +
         ": the decimal sign here is a " + decimal + ".";
}

std::string NumberHint(const Field& field, NumberSigns signs) {
  const bool takesNumber = field.row().kind == Kind::Text || field.row().kind == Kind::List;
  return takesNumber ? NumberHint(signs, field.text()) : std::string();
}

}  // namespace torvane
