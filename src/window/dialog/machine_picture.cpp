#include "window/dialog/machine_picture.h"

#include <QPainterPath>
#include <cmath>

namespace torvane {

namespace {

// Places in the picture's own measure.
constexpr double kAxis = 62, kPostFace = 240, kFigureHead = 186;  // head: where its middle stands
constexpr double kHeadLeft = 136, kHeadRight = 188, kHeadMiddle = (kHeadLeft + kHeadRight) / 2;

class Machine {
 public:
  Machine(QPainter& p, const Theme& t) : p_(p), t_(t) {}

  void Paint(MachineLetters letters) {
    PaintGround();
    PaintParts();
    switch (letters) {
      case MachineLetters::General:
        Arrow({kHeadMiddle, 160}, {kPostFace - 4, 160});
        Letter({kHeadMiddle + 40, 160}, 'A');
        Words({112, 134}, QStringLiteral("to the limit switch"));
        Turn(18, 'B');
        Turn(52, 'C');
        break;
      case MachineLetters::TwoAxis:
        Offset();
        Turn(36, 'B');
        break;
      case MachineLetters::FourAxis:
        Offset();
        Line({kHeadLeft, 200}, {kHeadLeft, 242});
        Line({kHeadRight, 200}, {kHeadRight, 242});
        Span({kHeadLeft, 234}, {kHeadRight, 234}, 'B');
        Line({100, kFigureHead}, {kHeadLeft - 4, kFigureHead});
        Span({108, kAxis}, {108, kFigureHead}, 'C');
        break;
      case MachineLetters::Speeds:
        Arrow({kHeadLeft - 12, kFigureHead}, {kHeadLeft - 62, kFigureHead});
        Arrow({kHeadRight + 12, kFigureHead}, {kHeadRight + 44, kFigureHead});
        Letter({kHeadLeft - 38, kFigureHead}, 'A');
        Turn(36, 'B');
        break;
    }
  }

 private:
  void PaintGround() {
    const QRectF box(QPointF(0, 0), kMachinePicture);
    p_.setPen(t_.Pen(Token::Hairline));
    p_.setBrush(t_[Token::Drawing]);
    p_.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    p_.setPen(t_[Token::DrawingGrid]);
    for (int i = 1; i * 20 < kMachinePicture.width(); ++i) p_.drawLine(i * 20, 2, i * 20, 252);
    for (int i = 1; i * 20 < kMachinePicture.height(); ++i) p_.drawLine(2, i * 20, 274, i * 20);
    Words({9, 6}, QStringLiteral("seen from above, carriage at home"));
  }

  void PaintParts() {
    p_.setPen(t_.Pen(Token::DrawnEdge));
    p_.setBrush(t_[Token::MandrelMid]);
    p_.drawRect(QRectF(1, 36, 76, 52));
    p_.setBrush(t_[Token::Steel]);
    p_.drawRect(QRectF(77, kAxis - 7, 141, 14));
    p_.drawRect(QRectF(218, kAxis - 14, kPostFace - 218, 28));
    p_.drawRect(QRectF(kPostFace, 26, 24, 190));
    p_.setPen(QPen(t_[Token::DrawnEdge], 1, Qt::DashDotLine));
    p_.drawLine(QPointF(1, kAxis), QPointF(275, kAxis));
    Words({146, 80}, QStringLiteral("mandrel post"));
    QColor head = t_[Token::BandOut];
    p_.setPen(QPen(head, 1.4));
    head.setAlphaF(0.3F);
    p_.setBrush(head);
    p_.drawRoundedRect(QRectF(kHeadLeft, kFigureHead - 10, kHeadRight - kHeadLeft, 20), 2, 2);
    p_.setBrush(t_[Token::BandOut]);
    p_.drawEllipse(QPointF(kHeadMiddle, kFigureHead), 2.4, 2.4);
    p_.setPen(t_.Pen(Token::DrawnEdge));
    p_.setBrush(t_[Token::Steel]);
    p_.drawRect(QRectF(kHeadMiddle - 5, kFigureHead + 10, 10, 28));
  }

  // From the head's middle to the face of the post.
  void Offset() {
    Line({kHeadMiddle, 134}, {kHeadMiddle, kFigureHead - 12});
    Span({kHeadMiddle, 142}, {kPostFace, 142}, 'A');
  }

  void Line(const QPointF& from, const QPointF& to) {
    p_.setPen(t_.Pen(Token::Dimension));
    p_.drawLine(from, to);
  }

  void Span(const QPointF& from, const QPointF& to, char letter) {
    const QPointF middle = (from + to) / 2;
    Arrow(middle, from);
    Arrow(middle, to);
    Letter(middle, letter);
  }

  void Arrow(const QPointF& from, const QPointF& to) {
    const QPointF way = to - from;
    const QPointF along = way / std::hypot(way.x(), way.y()) * 8;
    p_.setPen(t_.Pen(Token::Accent, 1.4));
    p_.drawLine(from, to - along * 0.6);
    const QPointF across(-along.y() * 0.4, along.x() * 0.4);
    p_.setBrush(t_[Token::Accent]);
    p_.setPen(Qt::NoPen);
    p_.drawPolygon(QPolygonF({to, to - along + across, to - along - across}));
  }

  // An arrow over the mandrel, the way it turns.
  void Turn(double x, char letter) {
    p_.setBrush(Qt::NoBrush);
    p_.setPen(t_.Pen(Token::Accent, 1.4));
    QPainterPath round;
    round.arcMoveTo(QRectF(x - 9, 30, 18, 64), 60);
    round.arcTo(QRectF(x - 9, 30, 18, 64), 60, 215);
    p_.drawPath(round);
    // The head goes on where the arc points to.
    const QPointF end = round.currentPosition(), before = round.pointAtPercent(0.95);
    const QPointF ahead = end - before;
    Arrow(end, end + ahead * (8 / std::hypot(ahead.x(), ahead.y())));
    Letter({x - 9, kAxis}, letter);
  }

  void Letter(const QPointF& centre, char letter) { PaintLetter(p_, t_, centre, 7.5, letter); }

  void Words(const QPointF& at, const QString& words) {
    p_.setFont(t_.Font(11));
    p_.setPen(t_[Token::Second]);
    p_.drawText(QRectF(at, QSizeF(260, 16)), Qt::AlignLeft | Qt::AlignVCenter, words);
  }

  QPainter& p_;
  const Theme& t_;
};

}  // namespace

void PaintMachine(QPainter& p, const Theme& t, const QRectF& box, MachineLetters letters) {
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  p.translate(box.topLeft());
  const double scale =
      std::min(box.width() / kMachinePicture.width(), box.height() / kMachinePicture.height());
  p.scale(scale, scale);
  Machine(p, t).Paint(letters);
  p.restore();
}

void PaintLetter(QPainter& p, const Theme& t, const QPointF& centre, double radius, char letter) {
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(t[Token::Accent], 1.4));
  p.setBrush(t[Token::Panel]);
  p.drawEllipse(centre, radius, radius);
  p.setFont(t.Font(radius > 9 ? 13 : 11, Weight::Medium));
  p.drawText(QRectF(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)), Qt::AlignCenter,
             QString(QLatin1Char(letter)));
}

}  // namespace torvane
