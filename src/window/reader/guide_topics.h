// Where the operator's guide tells of what.
#pragma once

#include <string_view>

namespace torvane {

// The guide's first heading, which leads to all of it.
inline constexpr std::string_view kWholeGuide = "The operator's guide";

// The name of the field that a widget of that name edits: a line of the drawing is moved in its field's
// stead.
std::string_view FieldNameOf(std::string_view widget);

// The heading under which the guide tells of a field, a control or a window of that name, with or without an
// index; empty where it tells nothing of it in particular.
std::string_view HeadingAbout(std::string_view name);

}  // namespace torvane
