#include <QBoxLayout>
#include <QBuffer>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include "look/paint.h"
#include "look/screen.h"
#include "look/text.h"
#include "window/dialog/station_dialog.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/field/segments.h"
#include "window/rail/polar_picture.h"
#include "workbench/dialog/picture_file.h"
#include "workbench/dialog/polar_svg.h"
#include "workbench/dialog/preview.h"

namespace torvane {

namespace {

constexpr int kFigures = 174;

// The drawing itself. It tells where the pointer stands, and its context menu saves the picture.
class Canvas : public QWidget {
 public:
  Canvas(Desk desk, const Field& layer, const Field& pattern)
      : desk_(desk), layer_(layer), pattern_(pattern) {
    setObjectName(QStringLiteral("picPreview"));
    setAccessibleName(QStringLiteral("Pattern seen from the end of the part"));
    setToolTip(QStringLiteral("The right button saves the picture."));
    setMinimumSize(320, 320);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
  }

  // The pointer's place in the picture's units.
  std::function<void(QPointF)> pointed;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    Paint(p, rect(), LastDrawing(desk_.station));
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const PolarFrame frame(LastDrawing(desk_.station), Picture(rect()));
    if (!frame.empty() && pointed) pointed(frame.PlaneOf(event->position()));
  }
  void contextMenuEvent(QContextMenuEvent* event) override {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("mnuPicture"));
    for (const bool svg : {false, true}) {
      QAction* save = menu.addAction(svg ? QStringLiteral("Save Picture as &SVG...")
                                         : QStringLiteral("Save Picture as &PNG..."));
      connect(save, &QAction::triggered, this, [this, svg] { Save(svg); });
    }
    menu.exec(event->globalPos());
  }

 private:
  static QRectF Picture(const QRect& box) { return Inset(box, 14); }

  void Paint(QPainter& p, const QRect& box, const std::vector<PolarFigure>& figures) const {
    PaintPanel(p, desk_.theme, box);
    PaintPolar(p, desk_.theme, figures, Picture(box));
  }

  // The picture as it stands when the entry is chosen.
  void Save(bool svg) {
    const std::vector<PolarFigure> figures = LastDrawing(desk_.station);
    const QByteArray bytes = svg ? SvgBytes(figures) : PngBytes(figures);
    SavePicture(desk_.station, layer_.text(), svg ? "svg" : "png",
                {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  }

  QByteArray SvgBytes(const std::vector<PolarFigure>& figures) const {
    const std::string title = PictureTitle(desk_.station.s, layer_.text(), pattern_.text());
    return QByteArray::fromStdString(SvgOf(figures, Shown(title).toStdString()));
  }

  QByteArray PngBytes(const std::vector<PolarFigure>& figures) const {
    constexpr int kSide = 800;
    QPixmap picture(2 * kSide, 2 * kSide);
    picture.setDevicePixelRatio(2);
    picture.fill(desk_.theme[Token::Panel]);
    {
      QPainter p(&picture);
      PaintPolar(p, desk_.theme, figures, Picture({0, 0, kSide, kSide}));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return bytes;
  }

  Desk desk_;
  const Field& layer_;
  const Field& pattern_;
};

class Line : public QWidget {
 public:
  explicit Line(Desk desk) : desk_(desk) { setFixedHeight(17); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(0, height() / 2, width(), 1, desk_.theme[Token::Hairline]);
  }

 private:
  Desk desk_;
};

class Swatch : public QWidget {
 public:
  Swatch(Desk desk, Token token) : desk_(desk), token_(token) { setFixedSize(20, 6); }

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), desk_.theme[token_]); }

 private:
  Desk desk_;
  Token token_;
};

class FigurePanel : public QWidget {
 public:
  explicit FigurePanel(Desk desk) : desk_(desk) { setFixedWidth(kFigures); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    PaintPanel(p, desk_.theme, rect());
  }

 private:
  Desk desk_;
};

// How many passes of the pattern have been drawn.
class Progress : public QWidget {
 public:
  explicit Progress(Desk desk) : desk_(desk) {
    setObjectName(QStringLiteral("progress"));
    setFixedHeight(32);
  }

  void Show(DrawnPasses passes) {
    passes_ = passes;
    setAccessibleName(Words());
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(t[Token::Hairline]);
    p.drawRoundedRect(QRectF(0, 0, width(), 6), 3, 3);
    p.setBrush(t[Token::Accent]);
    if (passes_.drawn > 0)
      p.drawRoundedRect(QRectF(0, 0, 1.0 * width() * passes_.drawn / passes_.all, 6), 3, 3);
    p.setPen(t[Token::Second]);
    p.setFont(t.Font(12));
    p.drawText(rect().adjusted(0, 12, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, Words());
  }

 private:
  QString Words() const {
    return passes_.all == 0 ? QStringLiteral("No pattern to draw")
                            : QStringLiteral("%1 of %2 passes drawn").arg(passes_.drawn).arg(passes_.all);
  }

  Desk desk_;
  DrawnPasses passes_;
};

class PreviewDialog : public StationDialog {
 public:
  PreviewDialog(Desk desk, Window& window, QWidget* parent)
      : StationDialog(desk, window, QStringLiteral("Polar pattern"), parent) {
    setMinimumSize(600, 620);
    resize(720, 702);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 0, 12, 14);
    rows->setSpacing(10);
    rows->addWidget(MakeHead());
    auto* upper = new QHBoxLayout;
    upper->setSpacing(8);
    canvas_ = new Canvas(desk, Of("lbllayerNo"), Of("lblPolarTag"));
    canvas_->pointed = [this](QPointF at) { Point(at); };
    upper->addWidget(canvas_, 1);
    upper->addWidget(MakeFigures());
    rows->addLayout(upper, 1);
    progress_ = new Progress(desk);
    rows->addWidget(progress_);
    rows->addWidget(MakeButtons());
    desk_.binder.BindAll(this, [this] { Follow(); });
    // In front of the part, with the layers and the end view beside it in sight.
    const QRect main = parent->frameGeometry();
    move(main.x() + main.width() / 4, main.y() + main.height() / 8);
    KeepOnScreen(*this);
  }

 protected:
  const char* Leaving() const override { return "btnClose"; }
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), desk_.theme[Token::Window]);
    p.fillRect(0, 0, width(), kHead, desk_.theme[Token::Bars]);
    p.fillRect(0, kHead, width(), 1, desk_.theme[Token::Hairline]);
  }

 private:
  static constexpr int kHead = 54;

  ReadOut* Figure(const char* field, int size) {
    auto* figure = new ReadOut(desk_, Of(field), size, this);
    figure->setObjectName(QString::fromLatin1(field));
    return figure;
  }
  Word* Caption(const char* text, int size = 12) {
    return new Word(desk_, QString::fromLatin1(text), size, Token::Second);
  }

  QWidget* MakeHead() {
    auto* head = new QWidget(this);
    head->setFixedHeight(kHead);
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(5, 0, 5, 0);
    row->setSpacing(6);
    row->addWidget(Caption("Layer", 15));
    auto* layer = Figure("lbllayerNo", 15);
    layer->setFixedWidth(20);
    row->addWidget(layer);
    row->addSpacing(10);
    row->addWidget(Figure("lblPolarTag", 22));
    row->addStretch(1);
    row->addWidget(Caption("seen from the end of the part"));
    return head;
  }

  // The running number, large, and how many there will be.
  void AddCounter(QVBoxLayout& column, const char* caption, const char* field, const char* last) {
    column.addWidget(Caption(caption));
    auto* row = new QHBoxLayout;
    row->setSpacing(5);
    row->addWidget(Figure(field, 24));
    auto* of = new Word(desk_, {}, 15, Token::Second);
    desk_.binder.BindAll(of, [this, of, last] {
      if (desk_.station.windows.Hold(&window_) && !Of(last).empty())
        of->SetText(QStringLiteral("of ") + Shown(Of(last).text()));
    });
    row->addWidget(of, 0, Qt::AlignBottom);
    row->addStretch(1);
    column.addLayout(row);
    column.addSpacing(4);
  }

  void AddLine(QVBoxLayout& column, const char* caption, QWidget* figure, QWidget* swatch = nullptr) {
    auto* row = new QHBoxLayout;
    row->setSpacing(3);
    if (swatch != nullptr) {
      row->addWidget(swatch);
      row->addSpacing(4);
    }
    row->addWidget(Caption(caption));
    row->addStretch(1);
    if (figure != nullptr) row->addWidget(figure);
    row->setContentsMargins(0, 3, 0, 3);
    column.addLayout(row);
  }

  QWidget* MakeFigures() {
    auto* panel = new FigurePanel(desk_);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(12, 10, 11, 10);
    column->setSpacing(2);
    AddCounter(*column, "Circuit # :", "lblCircuitNo", "lblP");
    AddCounter(*column, "Pass # :", "lblPassNo", "lblC");
    column->addWidget(new Line(desk_));
    AddLine(*column, "Groups:", Figure("lblC", 14));
    AddLine(*column, "Circuits per Group:", Figure("lblP", 14));
    AddLine(*column, "Phi Len:", Figure("lblPhiL", 14));
    AddLine(*column, "End Grazing Angle:", Figure("lblG", 14));
    column->addWidget(new Line(desk_));
    AddLine(*column, "Split Angle", Figure("lblSplitAngle", 14), new Swatch(desk_, Token::Split));
    AddLine(*column, "End Wrap Angle", Figure("lblW", 14), new Swatch(desk_, Token::BandBack));
    AddLine(*column, "Group #1", nullptr, new Swatch(desk_, Token::TooHigh));
    AddLine(*column, "bands laid", nullptr, new Swatch(desk_, Token::Text));
    AddLine(*column, "band over the end", nullptr, new Swatch(desk_, Token::BandOut));
    column->addWidget(new Line(desk_));
    AddLine(*column, "X", Figure("lblX", 14));
    AddLine(*column, "Y", Figure("lblY", 14));
    AddLine(*column, "Radius", Figure("lblRadius", 14));
    AddLine(*column, "Angle", Figure("lblAngle", 14));
    column->addStretch(1);
    return panel;
  }

  QWidget* MakeButtons() {
    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    pause_ = Add("btnPause", Icon::Pause, 110);
    row->addWidget(pause_);
    play_ = Add("btnPlay", Icon::Play, 103);
    row->addWidget(play_);
    row->addWidget(Add("btnRedraw", Icon::Refresh, 110));
    row->addStretch(1);
    row->addWidget(Caption("Draw Spd:", 13));
    row->addWidget(new ChoiceSegments(desk_, Of("cmbSpeed"), Of("cmbSpeed").entries(), {41, 44}));
    row->addStretch(1);
    row->addWidget(Add("btnClose", Icon::None, 95));
    return bar;
  }

  Button* Add(const char* control, Icon icon, int width) {
    auto* button = new Button(desk_, ButtonLook::Outline, icon, Shown(Of(control).caption()), this);
    button->Runs(control);
    button->setFixedSize(width, 44);
    desk_.binder.Bind(Of(control), button,
                      [button, &field = Of(control)] { button->setEnabled(field.enabled()); });
    return button;
  }

  // The pair shows what runs: the button that can be pressed is the filled one.
  void Follow() {
    if (!desk_.station.windows.Hold(&window_)) return;
    pause_->SetFilled(Of("btnPause").enabled());
    play_->SetFilled(Of("btnPlay").enabled());
    progress_->Show(PassesDrawn(desk_.station));
    canvas_->update();
  }

  void Point(QPointF at) {
    desk_.binder.Do([&] { ShowPointer(desk_.station, at.x(), at.y()); });
  }

  Canvas* canvas_ = nullptr;
  Progress* progress_ = nullptr;
  Button* pause_ = nullptr;
  Button* play_ = nullptr;
};

}  // namespace

QWidget* MakePreviewWindow(Desk desk, Window& window, QWidget* parent) {
  return new PreviewDialog(desk, window, parent);
}

}  // namespace torvane
