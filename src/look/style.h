// The one style of the toolkit's own widgets: edges, radius and focus as the tokens say.
#pragma once

#include <QProxyStyle>

#include "look/theme.h"

namespace torvane {

// Gives the whole program its style, palette, font and icon.
void Dress(const Theme& theme);

class Style : public QProxyStyle {
 public:
  // Follows the theme, which must outlive it.
  explicit Style(const Theme& theme);

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

 private:
  const Theme& theme_;
};

}  // namespace torvane
