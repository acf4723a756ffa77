#include <QBoxLayout>
#include <QPainter>

#include "look/paint.h"
#include "look/text.h"
#include "window/dialog/station_dialog.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/field/link.h"

namespace torvane {

namespace {

class AboutWindow : public StationDialog {
 public:
  AboutWindow(Desk desk, Window& window, QWidget* parent)
      : StationDialog(desk, window, QStringLiteral("About Torvane Designer"), parent) {
    setFixedSize(580, 208);
    auto* version = new Word(desk_, Shown(Of("lblVersion").text()), 13, Token::Text, Weight::Medium, this);
    version->setObjectName(QStringLiteral("lblVersion"));
    version->setGeometry(278, 56, 200, 26);
    int y = 82;
    for (const char* control : {"lblHelpURL", "lblCheckNewSoftware"}) {
      (new Link(desk_, Icon::None, Shown(Of(control).caption()), control, this))->move(274, y);
      y += 26;
    }
    auto* close = new Button(desk_, ButtonLook::Filled, Icon::None, Shown(Of("btnCancel").caption()), this);
    close->Runs("btnCancel");
    close->setFixedHeight(42);
    close->setGeometry(442, 154, 118, 42);
    close->SetTextSize(14);
    close->setFocus();
  }

 protected:
  const char* Leaving() const override { return "btnCancel"; }
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    QPainter p(this);
    p.fillRect(rect(), t[Token::Panel]);
    p.fillRect(0, 142, width(), height() - 142, t[Token::Bars]);
    p.setPen(t[Token::Hairline]);
    p.drawLine(0, 142, width(), 142);
    PaintProgramMark(p, {26, 22, 64, 64});
    p.setPen(t[Token::Text]);
    p.setFont(t.Font(20, Weight::Medium));
    p.drawText(QRect(108, 18, 400, 32), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Torvane Designer"));
    p.setFont(t.Font(13));
    p.setPen(t[Token::Second]);
    int y = 56;
    for (const char* caption : {"Designer Version:", "Help Web Pages:", "Check for New Software:"}) {
      p.drawText(QRect(108, y, 170, 26), Qt::AlignLeft | Qt::AlignVCenter, QString::fromLatin1(caption));
      y += 26;
    }
  }
};

}  // namespace

QWidget* MakeAboutWindow(Desk desk, Window& window, QWidget* parent) {
  return new AboutWindow(desk, window, parent);
}

}  // namespace torvane
