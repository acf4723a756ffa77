#include "window/field/button.h"

namespace torvane {

void Button::Runs(const char* control, int index) {
  setObjectName(index < 0 ? QString::fromLatin1(control)
                          : QStringLiteral("%1(%2)").arg(QString::fromLatin1(control)).arg(index));
  connect(this, &QAbstractButton::clicked, this,
          [this, control, index] { desk_.Run(control, Event::Click, std::max(index, 0)); });
}

}  // namespace torvane
