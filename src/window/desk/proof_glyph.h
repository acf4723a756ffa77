// How a proof stands, as one small sign.
#pragma once

#include <QPainter>

#include "look/theme.h"
#include "window/desk/live_watch.h"

namespace torvane {

enum class ProofState : std::uint8_t { Ok, Note, Fault, Proving, NotJudged };

ProofState StateOf(executor::Level level);
// Of the layer of a row; row 0: the worst of the whole program.
ProofState RowState(const LiveWatch& live, int row);
// For a screen reader: "in order".
QString WordsOf(ProofState state);

// A check, an i in a ring, a cross, an open ring or a dash, `size` pixels each way round `centre`.
void PaintProofState(QPainter& p, const Theme& t, const QPointF& centre, ProofState state, double size = 18);

}  // namespace torvane
