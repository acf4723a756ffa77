// The columns of the layer grid in either family: one row of a table for each.
#pragma once

#include <span>

#include "design/fields.h"
#include "design/state.h"

namespace torvane {

enum class CellKind : std::uint8_t { Row, List, Angle, Text, Check, Figure, Minutes, Proof };

struct LayerColumn {
  const Field Fields::*heading;  // "Carriage Speed (in/s)", its unit in brackets; null: the cells' own words
  FieldArray Fields::*cells;     // null for the row's button and its proof
  CellKind kind;
  int width;
  // With large figures; 0: the column is left out. Where there is little room the higher ranks go first.
  int largeWidth;
  int largeRank;
};

// Set by the operator, then calculated; the bar stands before the first calculated one.
std::span<const LayerColumn> LayerColumns(Family family);

constexpr bool IsCalculated(CellKind kind) {
  return kind == CellKind::Figure || kind == CellKind::Minutes || kind == CellKind::Proof;
}
constexpr bool IsInput(CellKind kind) { return kind != CellKind::Row && !IsCalculated(kind); }

}  // namespace torvane
