#include "workbench/dialog/polar_svg.h"

#include <cmath>

#include "text/number_text.h"

namespace torvane {

namespace {

const char* ColourOf(PolarColour colour) {
  switch (colour) {
    case PolarColour::Tick:
      return "#c0c0c0";
    case PolarColour::Closing:
      return "#d3262b";
    case PolarColour::Split:
      return "#2f9e5b";
    case PolarColour::Wrap:
      return "#2f78b4";
    case PolarColour::Outline:
    case PolarColour::Band:
      return "#17222c";
  }
  return "";
}

std::string Coordinate(double value) { return FormatNumberText({}, value, "0.####"_mask); }

// The picture's plane has y upward, a file's downward.
std::string PathOfArc(const PolarFigure& f) {
  double span = f.to - f.from;
  if (span < 0) span += 2 * kPi;
  const auto point = [&f](double angle) {
    return Coordinate(f.radius * std::cos(angle)) + " " + Coordinate(-f.radius * std::sin(angle));
  };
  return "<path d=\"M " + point(f.from) + " A " + Coordinate(f.radius) + " " + Coordinate(f.radius) + " 0 " +
         (span > kPi ? "1" : "0") + " 0 " + point(f.to) + "\"";
}

std::string ShapeOf(const PolarFigure& f) {
  switch (f.kind) {
    case PolarKind::Circle:
      return "<circle r=\"" + Coordinate(f.radius) + "\"";
    case PolarKind::Arc:
      return PathOfArc(f);
    case PolarKind::Tick:
    case PolarKind::Chord:
      return "<line x1=\"" + Coordinate(f.x1) + "\" y1=\"" + Coordinate(-f.y1) + "\" x2=\"" +
             Coordinate(f.x2) + "\" y2=\"" + Coordinate(-f.y2) + "\"";
  }
  return "";
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text)
    escaped += c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '&' ? "&amp;" : std::string(1, c);
  return escaped;
}

}  // namespace

std::string SvgOf(const std::vector<PolarFigure>& figures, const std::string& title) {
  const double radius = figures.empty() ? 1 : figures.front().radius;
  const double edge = 1.2 * radius;
  const std::string width = Coordinate(2 * edge);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"" + Coordinate(-edge) + " " +
                    Coordinate(-edge) + " " + width + " " + width +
                    "\" width=\"800\" height=\"800\">\n<title>" + Escaped(title) +
                    "</title>\n<g fill=\"none\" stroke-linecap=\"butt\">\n";
  for (const PolarFigure& f : figures) {
    const double stroke = f.kind == PolarKind::Arc ? radius / 40 : radius / 250;
    svg +=
        ShapeOf(f) + " stroke=\"" + ColourOf(f.colour) + "\" stroke-width=\"" + Coordinate(stroke) + "\"/>\n";
  }
  return svg + "</g>\n</svg>\n";
}

}  // namespace torvane
