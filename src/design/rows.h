// The rows of a schedule.
#pragma once

namespace torvane {

// A machine winds no more layers in one go; what is typed above becomes this.
inline constexpr int kMostLayers = 15;
// So many rows have fields; those behind the layers are never shown.
inline constexpr int kFieldRows = 18;
// Of some columns there are more, which the start and a new design fill alike.
inline constexpr int kLongRows = 25;

}  // namespace torvane
