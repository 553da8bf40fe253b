#include "channelstriptab.h"

#include "auxstrip.h"
#include "channelstrip.h"
#include "mainsstrip.h"
#include "phonesstrip.h"
#include "tablefilereader.h"

#include <QStackedWidget>

ChannelStripTab::ChannelStripTab(QWidget* parent)
    : QWidget(parent)
    , pages(new QStackedWidget(this))
{
    setObjectName(QStringLiteral("channelStripTab"));

    const TableFileReader reader;
    const auto read = [&reader](const char* name) {
        return reader.readDoubleTable(QLatin1String(name));
    };
    ChannelStrip::Tables tables;
    tables.highPass = read("highPassFreqTable-9bit.txt");
    tables.lowEq = read("lowEQFreqTable-9bit.txt");
    tables.midEq = read("midEQFreqTable-9bit.txt");
    tables.highEq = read("highEQFreqTable-9bit.txt");
    const QList<double> withPad = read("trimTableWithPad.txt");
    const QList<double> noPad = read("trimTableNoPad.txt");

    for (int index = 0; index < channels::lastInput; ++index) {
        tables.trim = channels::hasPad(index + 1) ? withPad : noPad;
        QWidget* page = addPage(QStringLiteral("channelstrip_ch%1").arg(index + 1));
        strips.append(new ChannelStrip(page, index, selected, tables));
    }
    mains = new MainsStrip(addPage(QStringLiteral("channelstrip_mains")),
                           {tables.lowEq, tables.midEq, tables.highEq});
    for (int index = 0; index < channels::auxes; ++index)
        auxes.append(
            new AuxStrip(addPage(QStringLiteral("channelstrip_aux%1").arg(index + 1)), index));
    phones = new PhonesStrip(addPage(QStringLiteral("channelstrip_phones")));

    pages->resize(strips.first()->size());
    resize(pages->size());
    pages->setCurrentIndex(0);
    connectGlobals();
    joinAuxStrips();
    joinChannels();
}

QWidget* ChannelStripTab::addPage(const QString& name)
{
    auto* page = new QWidget(pages);
    page->setObjectName(name);
    pages->addWidget(page);
    return page;
}

// Only the first two channels have phantom power.
void ChannelStripTab::connectGlobals()
{
    for (ChannelStrip* strip : {strips.at(0), strips.at(1)}) {
        connect(strip, SIGNAL(signalSendGlobalParameter(QString, int)),
                SLOT(slotSendGlobalParameter(QString, int)));
        connect(strip, SIGNAL(signalSetPhantom(int, int)), SLOT(slotSetPhantom(int, int)));
    }
}

void ChannelStripTab::joinAuxStrips()
{
    for (ChannelStrip* strip : std::as_const(strips)) {
        for (AuxStrip* aux : std::as_const(auxes)) {
            connect(strip, SIGNAL(signalPassValuestoAuxStrip(QString, int, int)), aux,
                    SLOT(slotReceiveValuesfromChannelStrip(QString, int, int)));
            connect(aux, SIGNAL(signalPassValuestoChannelStrip(QString, int, int)), strip,
                    SLOT(slotReceiveValuesfromAuxStrip(QString, int, int)));
        }
    }
}

void ChannelStripTab::joinChannels()
{
    for (ChannelStrip* strip : std::as_const(strips)) {
        for (ChannelStrip* other : std::as_const(strips))
            if (other != strip)
                connect(strip, SIGNAL(signalLetOneChannelEffectAnother(QString, int)), other,
                        SLOT(slotLetOneChannelEffectAnother(QString, int)));
        connect(strip, SIGNAL(signalPassStereoStateUpdate(bool)),
                strips.at(strip->partnerNumber() - 1), SLOT(slotGetStereoStateUpdate(bool)));
    }
}

void ChannelStripTab::slotSelectChannelStrip(int selectedChannel)
{
    const int index = qMin(selectedChannel, pages->count()) - 1;
    if (index < 0)
        return;
    pages->setCurrentIndex(index);
    if (auto* number =
            pages->currentWidget()->findChild<QWidget*>(QStringLiteral("channelNumLabel")))
        number->setFocus(Qt::OtherFocusReason);
}

void ChannelStripTab::slotSendGlobalParameter(QString name, int value)
{
    emit signalSendGlobalParameter(name, value);
}

void ChannelStripTab::slotSetPhantom(int channel, int state)
{
    emit signalSetPhantom(channel, state);
}
