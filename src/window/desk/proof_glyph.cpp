#include "window/desk/proof_glyph.h"

#include <algorithm>

#include "look/icons.h"

namespace torvane {

ProofState StateOf(executor::Level level) {
  switch (level) {
    case executor::Level::Ok:
      return ProofState::Ok;
    case executor::Level::Note:
      return ProofState::Note;
    case executor::Level::Fault:
      return ProofState::Fault;
  }
  return ProofState::NotJudged;
}

ProofState RowState(const LiveWatch& live, int row) {
  if (live.proving()) return ProofState::Proving;
  const LiveResult* result = live.result();
  if (result == nullptr || !result->formed) return ProofState::NotJudged;
  if (row > 0) {
    const executor::LayerFigures* layer = result->LayerOf(row);
    return layer == nullptr ? ProofState::NotJudged : StateOf(layer->stands);
  }
  executor::Level worst = executor::Level::Ok;
  for (const executor::Remark& remark : result->remarks) worst = std::max(worst, remark.level);
  return StateOf(worst);
}

QString WordsOf(ProofState state) {
  switch (state) {
    case ProofState::Ok:
      return QStringLiteral("in order");
    case ProofState::Note:
      return QStringLiteral("a note");
    case ProofState::Fault:
      return QStringLiteral("a fault");
    case ProofState::Proving:
      return QStringLiteral("being proven");
    case ProofState::NotJudged:
      break;
  }
  return QStringLiteral("not judged");
}

void PaintProofState(QPainter& p, const Theme& t, const QPointF& centre, ProofState state, double size) {
  const QRectF box(centre.x() - size / 2, centre.y() - size / 2, size, size);
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  switch (state) {
    case ProofState::Ok:
      PaintIcon(p, Icon::Check, box, t[Token::Ok]);
      break;
    case ProofState::Note:
      PaintIcon(p, Icon::Info, box, t[Token::Note]);
      break;
    case ProofState::Fault:
      PaintIcon(p, Icon::Cross, box, t[Token::Fault]);
      break;
    case ProofState::Proving:
      p.setPen(QPen(t[Token::Second], 1.5));
      p.setBrush(Qt::NoBrush);
      p.drawEllipse(centre, size * 0.38, size * 0.38);
      break;
    case ProofState::NotJudged:
      p.setPen(QPen(t[Token::Off], 1.5));
      p.drawLine(centre - QPointF(size * 0.22, 0), centre + QPointF(size * 0.22, 0));
      break;
  }
  p.restore();
}

}  // namespace torvane
