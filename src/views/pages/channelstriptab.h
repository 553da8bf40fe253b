#pragma once

#include "channelselection.h"

#include <QWidget>

class AuxStrip;
class ChannelStrip;
class MainsStrip;
class PhonesStrip;
class QStackedWidget;

// All pages of one channel each, of which one is shown: eight inputs, mains, three aux buses and
// the phones, in that order. It owns and joins them, and reads their tables. The full-power view
// owns it.
class ChannelStripTab : public QWidget
{
    Q_OBJECT

public:
    explicit ChannelStripTab(QWidget* parent = nullptr);

    // In the order of the channels.
    const QList<ChannelStrip*>& channelStrips() const { return strips; }
    const QList<AuxStrip*>& auxStrips() const { return auxes; }
    MainsStrip* mainsStrip() const { return mains; }
    PhonesStrip* phonesStrip() const { return phones; }

    // Shared by all strips; the full-power view writes it.
    ChannelSelection& selection() { return selected; }

public slots:
    // 1 to 8 inputs, 9 mains, 10 to 12 aux 1 to 3, 13 and more phones. A number below has no page.
    void slotSelectChannelStrip(int selectedChannel);
    void slotSendGlobalParameter(QString name, int value);
    void slotSetPhantom(int channel, int state);

signals:
    void signalSendGlobalParameter(QString name, int value);
    void signalSetPhantom(int channel, int state);

private:
    QWidget* addPage(const QString& name);
    void connectGlobals();
    void joinAuxStrips();
    void joinChannels();

    QStackedWidget* const pages;
    ChannelSelection selected;
    QList<ChannelStrip*> strips;
    QList<AuxStrip*> auxes;
    MainsStrip* mains = nullptr;
    PhonesStrip* phones = nullptr;
};
