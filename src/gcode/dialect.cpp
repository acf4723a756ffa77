#include "gcode/dialect.h"

namespace torvane::dialect {

namespace {

// A line of words, each its letter, its value and one blank.
class Words {
 public:
  Words(NumberSigns signs, Mask mask, std::string_view head) : signs_(signs), mask_(mask), text_(head) {}

  Words& operator()(char letter, double value) { return WithMask(letter, value, mask_); }
  Words& WithMask(char letter, double value, Mask mask) {
    text_ += letter;
    AppendNumberText(text_, signs_, value, mask);
    text_ += ' ';
    return *this;
  }
  const std::string& text() const { return text_; }
  // Without the blank that would follow.
  std::string_view trimmed() const { return std::string_view(text_).substr(0, text_.size() - 1); }

 private:
  NumberSigns signs_;
  Mask mask_;
  std::string text_;
};

bool IsEllipse(EndMoveKind kind) {
  return kind == EndMoveKind::EllipseLeft || kind == EndMoveKind::EllipseRight;
}

}  // namespace

void MoveAxes(Program& p, const FourAxisMove& m, std::string_view comment) {
  Words words(p.signs(), kFourAxisMask, "G1 ");
  if (m.f != 0) words('F', m.f)('Z', m.z);
  if (m.e != 0) words('E', m.e)('Y', m.y);
  if (m.r != 0) words('R', m.r)('B', m.b);
  if (m.s != 0) words('S', m.s)('C', m.c);
  words.WithMask('A', m.a, kRunningAngle);
  p.Line(words.text(), " [", comment, "]");
}

void MoveRoundEnd(Program& p, const EndMove& m, std::string_view comment) {
  Words words(p.signs(), kEndMask, "G" + std::to_string(static_cast<int>(m.kind)) + " ");
  words('K', IsEllipse(m.kind) ? 40 : 2)('F', m.f)('Z', m.z)('E', m.e)('Y', m.y);
  if (m.r != 0 || !IsEllipse(m.kind)) words('R', m.r)('B', m.b);
  words('U', m.u)('V', m.v)('H', m.h)('W', m.w)('S', m.s)('C', m.c);
  words.WithMask('A', m.a, kRunningAngle);
  p.Line(words.trimmed(), " [", comment, "]");
}

}  // namespace torvane::dialect
