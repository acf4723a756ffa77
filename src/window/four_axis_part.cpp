#include "window/four_axis_part.h"

#include <QBoxLayout>

#include "look/text.h"
#include "window/four_axis_painter.h"
#include "window/stepper.h"

namespace torvane {

namespace {

constexpr int kTypes = 106;
constexpr int kField = 68;

// A part type as a picture with its name.
class TypeButton : public QAbstractButton {
 public:
  TypeButton(Desk desk, int type) : desk_(desk), type_(type) {
    DesignState& s = desk.station.s;
    setObjectName(QStringLiteral("optType(%1)").arg(type));
    setText(Shown(s.optType(type).caption()));
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QAbstractButton::clicked, this, [this, &s] {
      for (int other = 0; other <= 2; ++other)
        if (other != type_) s.optType(other) = "False";
      desk_.binder.Choose(s.optType(type_), "True");
    });
    desk.binder.Bind(s.optType(type), this, [this] { update(); });
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    const bool chosen = desk_.station.s.optType(type_).checked();
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), t[chosen ? Token::Selected : Token::Panel]);
    if (chosen) p.fillRect(0, 0, 4, height(), t[Token::Accent]);
    p.setPen(t[Token::Hairline]);
    p.drawLine(0, height() - 1, width(), height() - 1);
    const QRectF part(width() / 2.0 - 22, height() / 2.0 - 22, 44, 18);
    p.setPen(QPen(t[chosen ? Token::Accent : Token::DrawnEdge], 1.6));
    p.drawLine(QPointF(part.left() - 10, part.center().y()), QPointF(part.left(), part.center().y()));
    p.drawLine(QPointF(part.right(), part.center().y()), QPointF(part.right() + 10, part.center().y()));
    const double radius = type_ == 1 ? 9 : 1;
    p.drawRoundedRect(part, radius, radius);
    if (type_ == 0)
      for (const double x : {part.left(), part.right()})
        p.drawLine(QPointF(x, part.top() - 4), QPointF(x, part.bottom() + 4));
    if (type_ == 2) {
      p.setPen(QPen(t[Token::BandOut], 2));
      for (int i = 0; i < 3; ++i)
        p.drawLine(QPointF(part.left() + 4 + i * 13, part.bottom() - 2),
                   QPointF(part.left() + 16 + i * 13, part.top() + 2));
    }
    p.setFont(t.Font(12, chosen ? Weight::Medium : Weight::Regular));
    p.setPen(t[chosen ? Token::Text : Token::Second]);
    p.drawText(QRectF(4, height() / 2.0 + 6, width() - 6, 20), Qt::AlignCenter, text());
  }

 private:
  Desk desk_;
  int type_;
};

struct Offset {
  const char* name;
  const char* control;
  Event event;
  bool alongPart;   // moves in Z, else to and from the mandrel
  bool plusAtZero;  // index 0 of the control adds the step
};
constexpr Offset kOffsets[] = {{"Wrap Y", "btnLeftCloser", Event::Release, false, false},
                               {"Wrap Z", "btnLDHZ", Event::Click, true, true},
                               {"Left", "btnLeft", Event::Release, true, false},
                               {"Head gap", "btnCloser", Event::Release, false, false},
                               {"Right", "btnRight", Event::Release, true, false},
                               {"Wrap Z", "btnRDHZ", Event::Click, true, true},
                               {"Wrap Y", "btnRightCloser", Event::Release, false, false}};

}  // namespace

FourAxisPart::FourAxisPart(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("drawing4Axis"));
  DesignState& s = desk.station.s;
  AddTypes();
  AddField(QStringLiteral("Left diameter"), s.txtDia(0), 0, kTypes + 14, 100);
  AddField(QStringLiteral("Polar opening"), s.txtPODia(0), 0, kTypes + 14, 150);
  AddField(QStringLiteral("Skirt"), s.txtSkirtLeft, 0, kTypes + 14, 222);
  AddField(QStringLiteral("Left Z"), s.txtZ4(0), 0, kTypes + 114, 222);
  AddField(QStringLiteral("Inner left Z"), s.txtZ4(1), 0, kTypes + 214, 222);
  AddField(QStringLiteral("Right diameter"), s.txtDia(1), 1, -104, 100);
  AddField(QStringLiteral("Polar opening"), s.txtPODia(1), 1, -104, 150);
  AddField(QStringLiteral("Inner right Z"), s.txtZ4(2), 1, -304, 222);
  AddField(QStringLiteral("Right Z"), s.txtZ4(3), 1, -204, 222);
  AddField(QStringLiteral("Skirt"), s.txtSkirtRight, 1, -104, 222);
  for (int i = 0; i <= 6; ++i) AddOffset(i);
  desk.binder.BindAll(this, [this] { update(); });
}

void FourAxisPart::AddTypes() {
  types_ = new QWidget(this);
  auto* column = new QVBoxLayout(types_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  for (int type = 0; type <= 2; ++type) {
    auto* button = new TypeButton(desk_, type);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    column->addWidget(button);
  }
}

void FourAxisPart::AddOffset(int i) {
  const Offset& offset = kOffsets[i];
  Binder& binder = desk_.binder;
  DesignState& s = desk_.station.s;
  const auto step = [&binder, &s, &offset](int more) {
    // Along the part an arrow says where the head goes; Z grows away from home.
    const bool plus = offset.alongPart ? (more == 1) == s.gIsLHDrive : more == 1;
    binder.Run(offset.control, offset.event, plus == offset.plusAtZero ? 0 : 1);
  };
  auto* stepper = new Stepper(desk_, s.txtAdjust(i), 96, offset.alongPart ? Icon::Left : Icon::Down,
                              offset.alongPart ? Icon::Right : Icon::Up, step);
  stepper->setParent(this);
  stepper->edit()->setTextMargins(0, 0, 0, 0);
  stepper->edit()->setAccessibleName(QStringLiteral("Delivery head offset %1, ").arg(i) +
                                     QString::fromLatin1(offset.name));
  offsets_.push_back(stepper);
  auto* caption = new Word(desk_, QString::fromLatin1(offset.name), 12, Token::Second, Weight::Regular, this);
  offsetCaptions_.push_back(caption);
}

void FourAxisPart::AddField(const QString& caption, Field& field, double share, int x, int y) {
  auto* word = new Word(desk_, caption, 12, Token::Second, Weight::Regular, this);
  auto* edit = new FieldEdit(desk_, field, Place::Panel, this);
  edit->setAccessibleName(caption);
  auto* unit = new Word(desk_, {}, 12, Token::Second, Weight::Regular, this);
  const Field& units = desk_.station.s.gUnits;
  desk_.binder.Bind(units, unit, [unit, &units] { unit->SetText(Shown(units.text())); });
  // What a part type does not use is absent with its words.
  for (QWidget* beside : {word, unit})
    desk_.binder.Bind(field, beside, [beside, &field] { ShowAs(*beside, field.shown()); });
  placed_.push_back({word, edit, unit, share, x, y});
  stops_.push_back(edit);
}

void FourAxisPart::resizeEvent(QResizeEvent*) {
  types_->setGeometry(0, 0, kTypes, height());
  for (const Placed& placed : placed_) {
    const int x = static_cast<int>(placed.share * width()) + placed.x;
    placed.caption->setGeometry(x, placed.y - 18, 92, 16);
    placed.field->setGeometry(x, placed.y, kField, 30);
    placed.unit->setGeometry(x + kField + 5, placed.y + 7, 24, 16);
  }
  const double pitch = (width() - kTypes - 12.0) / 7;
  for (std::size_t i = 0; i < offsets_.size(); ++i) {
    const int x = kTypes + 8 + static_cast<int>(pitch * static_cast<double>(i) + (pitch - 96) / 2);
    offsets_[i]->move(x, 20);
    offsetCaptions_[i]->setGeometry(x + 20, 2, 76, 16);
  }
}

void FourAxisPart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect area(kTypes, 0, width() - kTypes, height());
  const FourAxisPainter drawing(desk_.theme, desk_.station.s, area);
  drawing.Paint(painter);
  for (std::size_t i = 0; i < offsets_.size(); ++i)
    drawing.PaintRing(painter, QPointF(offsets_[i]->x() + 8, 10), static_cast<int>(i));
  painter.setPen(desk_.theme[Token::Hairline]);
  painter.drawLine(kTypes, 0, kTypes, height());
}

}  // namespace torvane
