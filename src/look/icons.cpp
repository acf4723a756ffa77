#include "look/icons.h"

#include <QPainterPath>

namespace torvane {

namespace {

using Points = std::initializer_list<QPointF>;

void Line(QPainterPath& path, Points points) {
  const QPointF* first = points.begin();
  path.moveTo(*first);
  for (const QPointF* at = first + 1; at != points.end(); ++at) path.lineTo(*at);
}

QPainterPath Filled(Points points) {
  QPainterPath path;
  Line(path, points);
  path.closeSubpath();
  return path;
}

// The solid part of an icon: what runs, stops and points.
QPainterPath SolidOf(Icon icon) {
  QPainterPath path;
  switch (icon) {
    case Icon::Play:
      return Filled({{5, 3}, {17, 10}, {5, 17}});
    case Icon::Pause:
      path.addRoundedRect(QRectF(4.5, 3, 4, 14), 1.5, 1.5);
      path.addRoundedRect(QRectF(11.5, 3, 4, 14), 1.5, 1.5);
      return path;
    case Icon::Left:
      return Filled({{13, 4.5}, {13, 15.5}, {6, 10}});
    case Icon::Right:
      return Filled({{7, 4.5}, {7, 15.5}, {14, 10}});
    case Icon::PassBack:
      return Filled({{10, 4.5}, {10, 15.5}, {3, 10}}) + Filled({{17, 4.5}, {17, 15.5}, {10, 10}});
    case Icon::PassOn:
      return Filled({{3, 4.5}, {3, 15.5}, {10, 10}}) + Filled({{10, 4.5}, {10, 15.5}, {17, 10}});
    case Icon::LayerBack:
      path.addRect(QRectF(4, 4.5, 2, 11));
      return path + Filled({{15, 4.5}, {15, 15.5}, {7, 10}});
    case Icon::LayerOn:
      path.addRect(QRectF(14, 4.5, 2, 11));
      return path + Filled({{5, 4.5}, {5, 15.5}, {13, 10}});
    case Icon::Up:
      return Filled({{4.5, 13}, {15.5, 13}, {10, 7}});
    case Icon::Down:
      return Filled({{4.5, 7}, {15.5, 7}, {10, 13}});
    case Icon::Trace:
      for (const QPointF at : {QPointF(3, 15), QPointF(6.5, 7.5), QPointF(13.5, 7.5), QPointF(17, 15)})
        path.addEllipse(at, 2, 2);
      return path;
    case Icon::Video:
      return Filled({{8, 7}, {13, 10}, {8, 13}});
    case Icon::Info:
      path.addEllipse(QPointF(10, 6.4), 1.1, 1.1);
      return path;
    case Icon::Question:
      path.addEllipse(QPointF(10, 14.4), 1.0, 1.0);
      return path;
    case Icon::Warning:
      path.addEllipse(QPointF(10, 14.6), 0.9, 0.9);
      return path;
    case Icon::Stop:
      path.addRoundedRect(QRectF(4, 4, 12, 12), 1, 1);
      return path;
    case Icon::Press:
      path.addEllipse(QPointF(10, 10), 4.6, 4.6);
      return path;
    default:
      return path;
  }
}

QPainterPath StrokesOf(Icon icon) {
  QPainterPath p;
  switch (icon) {
    case Icon::New:
      Line(p, {{12, 2.5}, {5, 2.5}, {5, 17.5}, {15, 17.5}, {15, 5.5}, {12, 2.5}});
      Line(p, {{11.5, 2.5}, {11.5, 6}, {15, 6}});
      break;
    case Icon::Open:
      Line(p, {{2.5, 16}, {2.5, 4}, {7.5, 4}, {9.5, 6.2}, {15.5, 6.2}, {15.5, 8.5}});
      Line(p, {{2.5, 16}, {5.2, 8.8}, {18, 8.8}, {15.5, 16}, {2.5, 16}});
      break;
    case Icon::Save:
      Line(p, {{3, 3}, {14, 3}, {17, 6}, {17, 17}, {3, 17}, {3, 3}});
      Line(p, {{6.5, 3}, {6.5, 7}, {12.5, 7}, {12.5, 3}});
      Line(p, {{6, 17}, {6, 11}, {14, 11}, {14, 17}});
      break;
    case Icon::Document:
      p.addRoundedRect(QRectF(4, 2.5, 12, 15), 1.5, 1.5);
      Line(p, {{7, 6.5}, {13, 6.5}});
      Line(p, {{7, 10}, {13, 10}});
      Line(p, {{7, 13.5}, {11, 13.5}});
      break;
    case Icon::Trace:
      p.moveTo(3, 15);
      p.cubicTo(3.4, 10, 5, 7.5, 7, 7.5);
      Line(p, {{7, 7.5}, {13, 7.5}});
      p.cubicTo(15, 7.5, 16.6, 10, 17, 15);
      break;
    case Icon::Home:
      Line(p, {{2, 10}, {13, 10}});
      Line(p, {{8.8, 5.5}, {13.3, 10}, {8.8, 14.5}});
      Line(p, {{17, 3}, {17, 17}});
      break;
    case Icon::Wheel:
      p.addEllipse(QPointF(10, 10), 7.2, 7.2);
      p.addEllipse(QPointF(10, 10), 2, 2);
      Line(p, {{3.2, 8.6}, {8, 9.6}});
      Line(p, {{16.8, 8.6}, {12, 9.6}});
      Line(p, {{10, 12}, {10, 17}});
      break;
    case Icon::Gear:
      p.addEllipse(QPointF(10, 10), 3.2, 3.2);
      for (const auto& [from, to] : {std::pair<QPointF, QPointF>{{10, 2}, {10, 4.4}},
                                     {{10, 15.6}, {10, 18}},
                                     {{2, 10}, {4.4, 10}},
                                     {{15.6, 10}, {18, 10}},
                                     {{4.4, 4.4}, {6, 6}},
                                     {{14, 14}, {15.6, 15.6}},
                                     {{4.4, 15.6}, {6, 14}},
                                     {{14, 6}, {15.6, 4.4}}})
        Line(p, {from, to});
      break;
    case Icon::Undo:
      Line(p, {{7, 4}, {3.5, 7.5}, {7, 11}});
      p.moveTo(3.8, 7.5);
      p.lineTo(12, 7.5);
      p.cubicTo(18, 7.5, 18, 16, 12, 16);
      p.lineTo(9, 16);
      break;
    case Icon::Redo:
      Line(p, {{13, 4}, {16.5, 7.5}, {13, 11}});
      p.moveTo(16.2, 7.5);
      p.lineTo(8, 7.5);
      p.cubicTo(2, 7.5, 2, 16, 8, 16);
      p.lineTo(11, 16);
      break;
    case Icon::Refresh:
      p.arcMoveTo(QRectF(3.5, 3.5, 13, 13), 40);
      p.arcTo(QRectF(3.5, 3.5, 13, 13), 40, 300);
      Line(p, {{16, 2.6}, {15.6, 6.6}, {11.6, 6.2}});
      break;
    case Icon::Plus:
      Line(p, {{10, 4.5}, {10, 15.5}});
      [[fallthrough]];
    case Icon::Minus:
      Line(p, {{4.5, 10}, {15.5, 10}});
      break;
    case Icon::Pencil:
      Line(p, {{3.5, 16.5}, {4.5, 12.5}, {13.5, 3.5}, {16.5, 6.5}, {7.5, 15.5}, {3.5, 16.5}});
      Line(p, {{11.5, 5.5}, {14.5, 8.5}});
      break;
    case Icon::TooHigh:
      Line(p, {{4, 3.5}, {16, 3.5}});
      Line(p, {{10, 17}, {10, 7.5}});
      Line(p, {{6, 11}, {10, 7}, {14, 11}});
      break;
    case Icon::TooLow:
      Line(p, {{4, 16.5}, {16, 16.5}});
      Line(p, {{10, 3}, {10, 12.5}});
      Line(p, {{6, 9}, {10, 13}, {14, 9}});
      break;
    case Icon::Warning:
      Line(p, {{10, 3}, {18, 17}, {2, 17}, {10, 3}});
      Line(p, {{10, 8}, {10, 12}});
      break;
    case Icon::Info:
      p.addEllipse(QPointF(10, 10), 7.5, 7.5);
      Line(p, {{10, 9.5}, {10, 14}});
      break;
    case Icon::Question:
      p.addEllipse(QPointF(10, 10), 7.5, 7.5);
      p.moveTo(7.6, 8);
      p.cubicTo(7.6, 4.6, 12.6, 4.8, 12.4, 8);
      p.cubicTo(12.3, 9.6, 10, 9.6, 10, 11.8);
      break;
    case Icon::Check:
      Line(p, {{4, 10.5}, {8.3, 14.8}, {16, 6}});
      break;
    case Icon::Cross:
      Line(p, {{5, 5}, {15, 15}});
      Line(p, {{15, 5}, {5, 15}});
      break;
    case Icon::Press:
      p.addEllipse(QPointF(10, 10), 8, 8);
      break;
    case Icon::Picture:
      p.addRoundedRect(QRectF(2.5, 4, 15, 12), 1.5, 1.5);
      Line(p, {{3, 14}, {8, 9.5}, {11, 12}, {14, 9.5}, {17, 12}});
      break;
    case Icon::Video:
      p.addRoundedRect(QRectF(2.5, 4, 15, 12), 1.5, 1.5);
      break;
    case Icon::Chevron:
      Line(p, {{5.5, 8}, {10, 12.5}, {14.5, 8}});
      break;
    case Icon::Enlarge:
      Line(p, {{11.5, 8.5}, {16.5, 3.5}});
      Line(p, {{12, 3.5}, {16.5, 3.5}, {16.5, 8}});
      Line(p, {{8.5, 11.5}, {3.5, 16.5}});
      Line(p, {{8, 16.5}, {3.5, 16.5}, {3.5, 12}});
      break;
    case Icon::Pattern:
      p.addEllipse(QPointF(10, 10), 7, 7);
      Line(p, {{4.6, 14}, {15.4, 6}});
      Line(p, {{4, 9}, {12.5, 4}});
      Line(p, {{7.5, 16}, {16, 11}});
      break;
    default:
      break;
  }
  return p;
}

}  // namespace

void PaintIcon(QPainter& painter, Icon icon, const QRectF& box, const QColor& colour) {
  if (icon == Icon::None) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(box.topLeft());
  painter.scale(box.width() / 20, box.height() / 20);
  QPen pen(colour, 1.6);
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  painter.strokePath(StrokesOf(icon), pen);
  painter.fillPath(SolidOf(icon), colour);
  painter.restore();
}

}  // namespace torvane
