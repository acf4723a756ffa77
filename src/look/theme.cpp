#include "look/theme.h"

#include <QApplication>
#include <QStringList>

namespace torvane {

namespace {

struct Colours {
  QRgb light, dark;
};

constexpr Colours kColours[] = {
    {0xFFE6EAED, 0xFF12171B},  // window
    {0xFFF8FAFB, 0xFF1A2126},  // bars
    {0xFFFFFFFF, 0xFF1D252B},  // panel
    {0xFFFFFFFF, 0xFF12181C},  // input
    {0xFFFBFCFD, 0xFF161D22},  // drawing
    {0xFFEDF1F4, 0xFF1E272D},  // its grid
    {0xFFE2E8EC, 0xFF263038},  // every fifth line
    {0xFFF2F5F7, 0xFF222B32},  // table head
    {0xFFF1F5F7, 0xFF182026},  // read-out ground
    {0xFF0A5566, 0xFF8FDCEA},  // figures
    {0xFF17222C, 0xFFE9EEF1},  // text
    {0xFF54636F, 0xFFA3B1BC},  // second text
    {0xFF8996A1, 0xFF6C7A86},  // off
    {0xFFD5DCE2, 0xFF303B44},  // hairline
    {0xFF8A98A4, 0xFF5D6B78},  // field edge
    {0xFF0B6B7F, 0xFF2BA7BF},  // accent
    {0xFFFFFFFF, 0xFF06181C},  // on it
    {0xFF0E8CA6, 0xFF4CC4DB},  // focus ring
    {0xFFDFF0F3, 0xFF173840},  // selected row
    {0xFFCF8010, 0xFFF2A93A},  // band out
    {0xFF2F78B4, 0xFF6DB1E8},  // band back
    {0xFFCBD4DB, 0xFF2A343C},  // mandrel low
    {0xFFE3E9ED, 0xFF36424B},  // mid
    {0xFFF6F9FA, 0xFF46545F},  // high
    {0xFF6F7F8C, 0xFF8C9BA7},  // drawn edge
    {0xFFB8C3CC, 0xFF4A5863},  // steel
    {0xFF3E4D59, 0xFFC3CED6},  // dimension lines
    {0xFFFFF1B0, 0xFFF0CE58},  // needs input: ground
    {0xFFC79A00, 0xFFFFE48A},  // edge
    {0xFF5C4700, 0xFF221A00},  // text
    {0xFFD3262B, 0xFFD93338},  // too high
    {0xFFC2191F, 0xFFD93338},  // stop too low
    {0xFF2F9E5B, 0xFF4FC07D},  // split angle
    {0xFF2B7A4B, 0xFF5CC98A},  // ok
    {0xFFA86200, 0xFFF0B04A},  // note
    {0xFFC2191F, 0xFFFF6B6B},  // fault
};

}  // namespace

bool DesktopIsDark() {
  QApplication::setPalette(QPalette());
  return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

QColor Theme::operator[](Token token) const {
  const Colours& colours = kColours[static_cast<std::size_t>(token)];
  return QColor::fromRgb(dark_ ? colours.dark : colours.light);
}

const QFont& Theme::Font(int size, Weight weight) const {
  const auto [place, isNew] = fonts_.try_emplace({size, weight});
  QFont& font = place->second;
  if (!isNew) return font;
  font.setFamilies({QStringLiteral("Roboto"), QStringLiteral("Noto Sans"), QStringLiteral("Segoe UI"),
                    QStringLiteral("DejaVu Sans")});
  font.setPixelSize(size);
  font.setWeight(weight == Weight::Medium ? QFont::Medium : QFont::Normal);
  return font;
}

QPen Theme::Pen(Token token, double width) const {
  QPen pen((*this)[token], width);
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  return pen;
}

QPalette Theme::Palette() const {
  const Theme& t = *this;
  QPalette p;
  p.setColor(QPalette::Window, t[Token::Panel]);
  p.setColor(QPalette::WindowText, t[Token::Text]);
  p.setColor(QPalette::Base, t[Token::Input]);
  p.setColor(QPalette::AlternateBase, t[Token::TableHead]);
  p.setColor(QPalette::Text, t[Token::Text]);
  p.setColor(QPalette::PlaceholderText, t[Token::Off]);
  p.setColor(QPalette::Button, t[Token::Panel]);
  p.setColor(QPalette::ButtonText, t[Token::Text]);
  p.setColor(QPalette::BrightText, t[Token::OnAccent]);
  p.setColor(QPalette::Highlight, t[Token::Accent]);
  p.setColor(QPalette::HighlightedText, t[Token::OnAccent]);
  p.setColor(QPalette::ToolTipBase, t[Token::TableHead]);
  p.setColor(QPalette::ToolTipText, t[Token::Text]);
  p.setColor(QPalette::Link, t[Token::Accent]);
  p.setColor(QPalette::Light, t[Token::Hairline]);
  p.setColor(QPalette::Midlight, t[Token::Hairline]);
  p.setColor(QPalette::Mid, t[Token::Hairline]);
  p.setColor(QPalette::Dark, t[Token::FieldEdge]);
  p.setColor(QPalette::Shadow, t[Token::FieldEdge]);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    p.setColor(QPalette::Disabled, role, t[Token::Off]);
  return p;
}

}  // namespace torvane
