// What each field is called and one sentence about it: tool tips, the status line, accessible names.
#pragma once

#include <QString>

#include "design/field.h"

namespace torvane {

struct Help {
  QString name;
  QString sentence;
};

Help HelpOf(const Field& field);

}  // namespace torvane
