#include "gcode/dialect.h"

namespace torvane::dialect {

namespace {

// A line of words, each its letter, its value and one blank.
class Words {
 public:
  Words(NumberSigns signs, Mask mask, std::string_view head) : signs_(signs), mask_(mask), text_(head) {}

  Words& operator()(char letter, double value) {
    text_ += letter;
    AppendNumberText(text_, signs_, value, mask_);
    text_ += ' ';
    return *this;
  }
  const std::string& text() const { return text_; }

 private:
  NumberSigns signs_;
  Mask mask_;
  std::string text_;
};

bool IsEllipse(EndMoveKind kind) {
  return kind == EndMoveKind::EllipseLeft || kind == EndMoveKind::EllipseRight;
}

}  // namespace

std::string WordsOf(NumberSigns signs, const FourAxisMove& m) {
  Words words(signs, kFourAxisMask, "G1 ");
  if (m.f != 0) words('F', m.f)('Z', m.z);
  if (m.e != 0) words('E', m.e)('Y', m.y);
  if (m.r != 0) words('R', m.r)('B', m.b);
  if (m.s != 0) words('S', m.s)('C', m.c);
  return words.text();
}

std::string WordsOf(NumberSigns signs, const EndMove& m) {
  Words words(signs, kEndMask, "G" + std::to_string(static_cast<int>(m.kind)) + " ");
  words('K', IsEllipse(m.kind) ? 40 : 2)('F', m.f)('Z', m.z)('E', m.e)('Y', m.y);
  if (m.r != 0 || !IsEllipse(m.kind)) words('R', m.r)('B', m.b);
  words('U', m.u)('V', m.v)('H', m.h)('W', m.w)('S', m.s)('C', m.c);
  return words.text();
}

}  // namespace torvane::dialect
