#include "fadercolumns.h"

#include "formbuilder.h"
#include "mixershape.h"
#include "stripparts.h"

#include <QToolButton>

namespace fadercolumns
{

namespace
{

QList<Column> make()
{
    QList<Column> columns;
    for (int number = 1; number <= channels::lastInput; ++number)
        columns.append({QStringLiteral("ch%1").arg(number), QStringLiteral("CH %1").arg(number),
                        QStringLiteral("Channel %1").arg(number), true});
    columns.append({"mains", "MAINS", "Mains", false});
    for (int aux = 1; aux <= channels::auxes; ++aux)
        columns.append({QStringLiteral("aux%1").arg(aux), QStringLiteral("AUX %1").arg(aux),
                        QStringLiteral("Aux %1").arg(aux), false});
    columns.append({"phones", "PHONES", "Phones", false});
    return columns;
}

} // namespace

const QList<Column>& all()
{
    static const QList<Column> columns = make();
    return columns;
}

QString nameOf(const Column& channel, const char* part)
{
    return QStringLiteral("faderframe_%1_%2").arg(channel.word, QLatin1String(part));
}

ControlRow faderRow(const Column& channel, const QString& toolTip)
{
    return stripparts::faderRow(nameOf(channel, "fader"), channel.name, QStringLiteral("fader"),
                                QStringLiteral("The level.") + toolTip);
}

ButtonRow muteRow(const Column& channel)
{
    return {nameOf(channel, "mute"), QStringLiteral("mute"),
            QStringLiteral("Silence this channel.")};
}

QToolButton* layMark(FormBuilder& builder, QWidget* parent, const ButtonRow& row,
                     const char* letter, const QRect& place)
{
    QToolButton* button = builder.button(parent, row, place);
    button->setText(QLatin1String(letter));
    button->setProperty("role", row.spoken);
    return button;
}

} // namespace fadercolumns
