#include "formbuilder.h"

#include "faderscale.h"
#include "freqspinbox.h"
#include "nowrapdial.h"
#include "portableslider.h"
#include "selectalldoublespinbox.h"
#include "selectallspinbox.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace
{

constexpr int boxWidth = 60;
constexpr int captionWidth = 64;
constexpr int boxHeight = 18;
constexpr int captionHeight = 14;
constexpr int gap = 2;
constexpr int resetSide = 14;
constexpr int lampWidth = 24;
constexpr int titleMargin = 8;
constexpr int titleHeight = 20;

// A label that is given the focus, where nothing else should have it, lays its text anew and two
// pixels off; this one stays as it is.
class StillLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void focusInEvent(QFocusEvent* event) override { QFrame::focusInEvent(event); }
    void focusOutEvent(QFocusEvent* event) override { QFrame::focusOutEvent(event); }
};

// At these sizes the segments of the ring come out even.
int dialSide(int thickness)
{
    switch (thickness) {
    case 4:
        return 39;
    case 5:
        return 57;
    default:
        return 55;
    }
}

// All widgets that a row makes share its tooltip.
void dress(QWidget* widget, const QString& name, const QString& accessibleName,
           const QString& toolTip)
{
    widget->setObjectName(name);
    widget->setAccessibleName(accessibleName);
    widget->setToolTip(toolTip);
}

void setTravel(QAbstractSlider* slider, const ControlRow& row)
{
    const Parameter& parameter = *row.parameter;
    slider->setRange(parameter.lowest, parameter.highest);
    if (parameter.encoding == Encoding::faderPosition) {
        slider->setSingleStep(200);
        slider->setPageStep(400);
    }
}

// Of boxes that stand side by side.
int fittingBoxWidth(int column) { return qMin(boxWidth, column - gap); }

void layBox(QAbstractSpinBox* number, const QRect& place)
{
    number->setButtonSymbols(QAbstractSpinBox::NoButtons);
    number->setAlignment(Qt::AlignCenter);
    number->setFrame(false);
    number->setGeometry(place);
}

QAbstractSpinBox* makeFrequencyBox(QWidget* parent, const ControlRow& row)
{
    auto* box = new FreqSpinBox(parent);
    const auto [lowest, highest] = boxLimits(row);
    box->slotSetRange(lowest, highest);
    return box;
}

QAbstractSpinBox* makeDecimalBox(QWidget* parent, const ControlRow& row)
{
    auto* box = new SelectAllDoubleSpinbox(parent);
    box->setDecimals(2);
    const auto [lowest, highest] = boxLimits(row);
    box->setRange(lowest, highest);
    box->setSuffix(row.suffix);
    box->setSpecialValueText(row.lowestText);
    if (row.parameter->encoding == Encoding::hundredths)
        box->setSingleStep(0.01);
    return box;
}

QAbstractSpinBox* makeWholeBox(QWidget* parent, const ControlRow& row)
{
    auto* box = new SelectAllSpinbox(parent);
    box->setRange(row.parameter->lowest, row.parameter->highest);
    box->setSuffix(row.suffix);
    box->setSpecialValueText(row.lowestText);
    return box;
}

} // namespace

FormBuilder::FormBuilder(QWidget* formWidget, const QString& spokenPage)
    : form(formWidget)
    , page(spokenPage)
{
}

QString FormBuilder::accessible(const QString& spoken) const
{
    return QStringLiteral("%1, %2").arg(page, spoken);
}

QFrame* FormBuilder::group(const char* name, const QString& title, const QRect& place)
{
    QFrame* panel = frame(form, name, place);
    panel->setProperty("role", "group");
    if (!title.isEmpty())
        label(panel, title, {titleMargin, 4, place.width() - 2 * titleMargin, titleHeight}, "title")
            ->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return panel;
}

QFrame* FormBuilder::frame(QWidget* parent, const char* name, const QRect& place)
{
    auto* part = new QFrame(parent);
    part->setObjectName(QLatin1String(name));
    part->setGeometry(place);
    return part;
}

QLabel* FormBuilder::label(QWidget* parent, const QString& text, const QRect& place,
                           const char* role)
{
    auto* words = new StillLabel(text, parent);
    words->setProperty("role", role);
    words->setAlignment(Qt::AlignCenter);
    words->setGeometry(place);
    return words;
}

int FormBuilder::knobHeight(const ControlRow& row)
{
    const int boxPart = row.hasBox ? boxHeight + gap : 0;
    return dialSide(row.thickness) + gap + boxPart + captionHeight;
}

NoWrapDial* FormBuilder::ring(QWidget* parent, const ControlRow& row, const QPoint& topMiddle)
{
    const int side = dialSide(row.thickness);
    auto* dial = new NoWrapDial(parent);
    dress(dial, row.name, accessible(row.spoken), row.toolTip);
    setTravel(dial, row);
    dial->setGeometry(topMiddle.x() - side / 2, topMiddle.y(), side, side);
    if (row.hasReset)
        resetButton(parent, row, {topMiddle.x(), topMiddle.y() + side - resetSide / 2});
    return dial;
}

QLabel* FormBuilder::caption(QWidget* parent, const ControlRow& row, const QRect& place)
{
    QLabel* words = label(parent, row.caption, place);
    words->setObjectName(row.name + QStringLiteral("_caption"));
    return words;
}

NoWrapDial* FormBuilder::knob(QWidget* parent, const ControlRow& row, const QPoint& topMiddle)
{
    NoWrapDial* dial = ring(parent, row, topMiddle);
    int y = topMiddle.y() + dial->height() + gap;
    if (row.hasBox) {
        box(parent, row, {topMiddle.x() - boxWidth / 2, y, boxWidth, boxHeight});
        y += boxHeight + gap;
    }
    caption(parent, row, {topMiddle.x() - captionWidth / 2, y, captionWidth, captionHeight});
    return dial;
}

NoWrapDial* FormBuilder::namedRing(QWidget* parent, const ControlRow& row, const QPoint& topMiddle,
                                   int width)
{
    NoWrapDial* dial = ring(parent, row, topMiddle);
    // The ring is drawn over its place, and turned there too.
    caption(parent, row, dial->geometry())->setAttribute(Qt::WA_TransparentForMouseEvents);
    const int fitting = fittingBoxWidth(width);
    box(parent, row,
        {topMiddle.x() - fitting / 2, topMiddle.y() + dial->height() + gap, fitting, boxHeight});
    return dial;
}

void FormBuilder::fader(QWidget* parent, const ControlRow& row, const QRect& place)
{
    const int below = gap + boxHeight + gap + captionHeight;
    auto* slider = new PortableSlider(Qt::Vertical, parent);
    dress(slider, row.name, accessible(row.spoken), row.toolTip);
    setTravel(slider, row);
    // A little to the right, for the scale's sake.
    constexpr int width = 30;
    constexpr int shift = 5;
    const int middle = place.center().x();
    slider->setGeometry(middle + shift - width / 2, place.y(), width, place.height() - below);
    (new FaderScale(slider, parent))
        ->setGeometry(slider->x() - FaderScale::widthInPixels, slider->y(),
                      FaderScale::widthInPixels, slider->height());

    int y = place.y() + place.height() - below + gap;
    const int fitting = fittingBoxWidth(place.width());
    box(parent, row, {middle - fitting / 2, y, fitting, boxHeight});
    y += boxHeight + gap;
    caption(parent, row, {place.x(), y, place.width(), captionHeight});
}

QAbstractSpinBox* FormBuilder::box(QWidget* parent, const ControlRow& row, const QRect& place)
{
    QAbstractSpinBox* number = nullptr;
    switch (row.parameter->encoding) {
    case Encoding::hertz:
    case Encoding::tensOfHertz:
        number = makeFrequencyBox(parent, row);
        break;
    case Encoding::plain:
        number = makeWholeBox(parent, row);
        break;
    default:
        number = makeDecimalBox(parent, row);
    }
    dress(number, row.name + QStringLiteral("_level"),
          accessible(row.spoken + QStringLiteral(", number")), row.toolTip);
    layBox(number, place);
    return number;
}

QLabel* FormBuilder::lineLabel(QWidget* parent, const QString& text, const QRect& place)
{
    QLabel* words = label(parent, text, place, "caption");
    words->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return words;
}

QAbstractSpinBox* FormBuilder::numberBox(QWidget* parent, const ControlRow& row, const QRect& place)
{
    QAbstractSpinBox* number = makeWholeBox(parent, row);
    dress(number, row.name, accessible(row.spoken), row.toolTip);
    layBox(number, place);
    return number;
}

QAbstractSpinBox* FormBuilder::number(QWidget* parent, const ControlRow& row, const QRect& place)
{
    constexpr int width = 62;
    lineLabel(parent, row.caption, place.adjusted(0, 0, -width, 0));
    return numberBox(parent, row, {place.right() + 1 - width, place.y(), width, place.height()});
}

QComboBox* FormBuilder::menu(QWidget* parent, const ControlRow& row, const QStringList& entries,
                             const QRect& place)
{
    constexpr int width = 78;
    lineLabel(parent, row.caption, place.adjusted(0, 0, -width, 0));
    auto* list = new QComboBox(parent);
    list->addItems(entries);
    list->setCurrentIndex(-1);
    dress(list, row.name, accessible(row.spoken), row.toolTip);
    list->setGeometry(place.right() + 1 - width, place.y(), width, place.height());
    return list;
}

void FormBuilder::choice(QWidget* parent, const ChoiceRow& row, const QRect& place)
{
    layChoice<QRadioButton>(parent, row, place);
}

void FormBuilder::keys(QWidget* parent, const ChoiceRow& row, const QRect& place)
{
    layChoice<QPushButton>(parent, row, place)->setProperty("role", "keys");
}

template <class Button>
QWidget* FormBuilder::layChoice(QWidget* parent, const ChoiceRow& row, const QRect& place)
{
    auto* part = new QWidget(parent);
    dress(part, row.name, accessible(row.spoken), row.toolTip);
    part->setGeometry(place);
    // As their texts need it; the mark in front takes as much as some letters.
    constexpr qsizetype markLetters = 5;
    qsizetype letters = 0;
    for (const ChoiceRow::Button& button : row.buttons)
        letters += button.caption.size() + markLetters;
    int left = 0;
    for (const ChoiceRow::Button& button : row.buttons) {
        auto* key = new Button(button.caption, part);
        key->setCheckable(true);
        dress(key, button.name,
              accessible(QStringLiteral("%1 %2").arg(row.spoken, button.caption.trimmed())),
              row.toolTip);
        const auto width =
            static_cast<int>((button.caption.size() + markLetters) * place.width() / letters);
        key->setGeometry(left, 0, width, place.height());
        left += width;
    }
    return part;
}

QToolButton* FormBuilder::button(QWidget* parent, const ButtonRow& row, const QRect& place)
{
    auto* key = new QToolButton(parent);
    dress(key, row.name, accessible(row.spoken), row.toolTip);
    key->setCheckable(true);
    key->setText(row.textOff);
    key->setGeometry(place);
    return key;
}

QToolButton* FormBuilder::bypass(QWidget* parent, const ButtonRow& row, const QRect& place)
{
    QLabel* words = label(
        parent, QStringLiteral("Bypass"),
        {place.x(), place.y(), place.width() - lampWidth - 2 * gap, place.height()}, "caption");
    words->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QToolButton* lamp = button(
        parent, row, {place.x() + place.width() - lampWidth, place.y(), lampWidth, place.height()});
    lamp->setProperty("role", "lamp");
    return lamp;
}

QToolButton* FormBuilder::resetButton(QWidget* parent, const ControlRow& row, const QPoint& middle)
{
    auto* key = new QToolButton(parent);
    dress(key, row.name + QStringLiteral("_reset"),
          accessible(QStringLiteral("reset %1").arg(row.spoken)),
          QStringLiteral("Put %1 back to the middle.").arg(row.spoken));
    key->setGeometry(middle.x() - resetSide / 2, middle.y() - resetSide / 2, resetSide, resetSide);
    return key;
}
