#include "persist/tagged_text.h"

#include "text/text.h"

namespace torvane {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

void SplitList(SplitFields& target, std::string_view text) {
  target.Split(text, text.find(';') != std::string_view::npos ? ";" : ",");
}

}  // namespace

LinesOf::LinesOf(std::string_view text) : text_(text) {
  if (text_.starts_with(kByteOrderMark)) text_.remove_prefix(kByteOrderMark.size());
}

LinesOf::Iterator& LinesOf::Iterator::operator++() {
  const auto end = End();
  if (end == std::string_view::npos)
    rest_ = {};
  else
    rest_.remove_prefix(end + (rest_.substr(end, 2) == "\r\n" ? 2 : 1));
  return *this;
}

std::string_view TagOf(std::string_view line) { return line.substr(0, line.find('>') + 1); }

bool IsTag(std::string_view tag, std::string_view name) {
  return tag.size() == name.size() + 2 && tag.front() == '<' && EqualNoCase(tag.substr(1, name.size()), name);
}

std::string GetTagValue(DesignState& s, std::string_view line) {
  const auto open = line.find('>');
  const auto close = line.find('<', 1);
  std::string value;
  if (open != std::string_view::npos && close != std::string_view::npos && close > open)
    value = line.substr(open + 1, close - open - 1);
  if (!s.gDecimalComma && s.gFileDecimalComma) value = Replaced(value, ',', '.');
  if (s.gDecimalComma && !s.gFileDecimalComma) value = Replaced(value, '.', ',');
  SplitTagFields(s, value);
  return value;
}

void SplitListToFields(DesignState& s, std::string_view text) { SplitList(s.gListFields, text); }

void SplitTagFields(DesignState& s, std::string_view text) { SplitList(s.gTagFields, text); }

void TaggedText::Value(std::string_view text) {
  for (const char c : text) text_ += EndsValue(c) ? ' ' : c;
}

void TaggedText::Comment(std::string_view comment) {
  text_ += "<#";
  Value(comment);
  text_ += "#>\r\n";
}

void TaggedText::Tag(std::string_view tag, const MaybeText& value) {
  if (!value.good) return;
  text_ += '<';
  text_ += tag;
  text_ += '>';
  Value(value.text);
  text_ += "</w>\r\n";
}

bool EndsValue(char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F || c == '<'; }

std::string JoinList(const std::vector<std::string>& fields) {
  std::string list;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) list += ';';
    list += Replaced(field, ';', ' ');
  }
  return list;
}

}  // namespace torvane
