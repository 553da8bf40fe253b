#include "fullpowerform.h"

#include "elidingcombobox.h"
#include "formbuilder.h"
#include "presetnames.h"
#include "stripparts.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>

namespace
{

constexpr int menuBarHeight = 20;
constexpr int margin = 8;
constexpr int top = menuBarHeight + 4;
// The pages' panels and the fader frame are flush at both sides.
constexpr int side = 16;
constexpr int leftWidth = stripparts::pageWidth - 2 * stripparts::margin;
constexpr int tabsHeight = 408;
constexpr int fadersTop = top + tabsHeight + margin;
constexpr int fadersHeight = 280;
constexpr int drawerLeft = 935;
constexpr int drawerWidth = 257;
constexpr int drawerHeight = 696;

QToolButton* addToolButton(QWidget* parent, const QString& name, const QString& text,
                           const QString& spoken, const QString& toolTip, const QRect& place)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(text);
    button->setAccessibleName(spoken);
    button->setToolTip(toolTip);
    button->setGeometry(place);
    return button;
}

} // namespace

QString FullPowerForm::receiveToolTip(QChar letter)
{
    return QStringLiteral("Fetch slot %1 from the mixer.").arg(letter);
}

void FullPowerForm::setupUi(QWidget* form)
{
    form->setObjectName(QStringLiteral("fullPowerViewForm"));
    layTabs(form);
    layFaders(form);
    layPresets(form);
    laySetlist();
}

void FullPowerForm::layTabs(QWidget* form)
{
    frame = new QFrame(form);
    frame->setObjectName(QStringLiteral("frame"));
    frame->setGeometry(0, top, leftWidth + 2 * side, tabsHeight);

    constexpr int tabHeight = 26;
    int left = side;
    const auto addTab = [this, &left](const char* name, const char* text, const QString& toolTip) {
        constexpr int width = 112;
        auto* tab = new QPushButton(QLatin1String(text), frame);
        tab->setObjectName(QLatin1String(name));
        tab->setCheckable(true);
        tab->setProperty("role", "tab");
        tab->setToolTip(toolTip);
        tab->setGeometry(left, 2, width, tabHeight);
        left += width + 4;
        return tab;
    };
    channelStripTabButton = addTab("channelStripTabButton", "CHANNEL",
                                   QStringLiteral("The controls of the selected channel."));
    reverbTabButton =
        addTab("reverbTabButton", "REVERB", QStringLiteral("The reverb and what goes to it."));
    surroundTabButton =
        addTab("surroundTabButton", "SURROUND", QStringLiteral("Surround panning."));
    midiTabButton = addTab("midiTabButton", "MIDI", QStringLiteral("The MIDI mappings."));
    usbTabButton = addTab("usbTabButton", "USB", QStringLiteral("The USB routing."));

    showPreset = addToolButton(frame, QStringLiteral("showPreset"), QStringLiteral("PRESETS"),
                               QStringLiteral("Show presets"),
                               QStringLiteral("Open or close the preset drawer."),
                               {side + leftWidth - 88, 4, 88, 22});
    showPreset->setCheckable(true);

    mainTabWidget = new QStackedWidget(frame);
    mainTabWidget->setObjectName(QStringLiteral("mainTabWidget"));
    mainTabWidget->setGeometry(side - stripparts::margin, tabHeight + 6, stripparts::pageWidth,
                               stripparts::pageHeight);
    const auto addPage = [this](const char* name) {
        auto* page = new QWidget(mainTabWidget);
        page->setObjectName(QLatin1String(name));
        mainTabWidget->addWidget(page);
        return page;
    };
    surroundTab = addPage("surroundTab");
    channelStripTab = addPage("channelStripTab");
    reverbTab = addPage("reverbTab");
    midiTab = addPage("midiTab");
    usbTab = addPage("usbTab");
}

void FullPowerForm::layFaders(QWidget* form)
{
    faderGroupBox = new QFrame(form);
    faderGroupBox->setObjectName(QStringLiteral("faderGroupBox"));
    faderGroupBox->setProperty("role", "group");
    faderGroupBox->setGeometry(side, fadersTop, leftWidth, fadersHeight);
}

void FullPowerForm::layPresets(QWidget* form)
{
    presetFrame = new QFrame(form);
    presetFrame->setObjectName(QStringLiteral("presetFrame"));
    presetFrame->setProperty("role", "group");
    presetFrame->setGeometry(drawerLeft, top, drawerWidth, drawerHeight);
    constexpr int inner = drawerWidth - 2 * margin;

    FormBuilder builder(presetFrame, QStringLiteral("Presets"));
    label = builder.label(presetFrame, QStringLiteral("PRESETS"), {margin, 10, inner, 24}, "title");
    label->setObjectName(QStringLiteral("label"));
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    presetlist = new ReorderableListWidget(presetFrame);
    presetlist->setObjectName(QStringLiteral("presetlist"));
    presetlist->setAccessibleName(QStringLiteral("Presets"));
    presetlist->setToolTip(
        QStringLiteral("Click to recall a preset, double-click to rename it, drag to move it."));
    presetlist->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    presetlist->setUniformItemSizes(true);
    presetlist->setGeometry(margin, 44, inner, 308);

    liveMemoryHelpButton =
        addToolButton(presetFrame, QStringLiteral("liveMemoryHelpButton"), QStringLiteral("?"),
                      QStringLiteral("About the connection sync"),
                      QStringLiteral("What the first entry of the list is."), {191, 52, 12, 12});

    constexpr int gap = 4;
    constexpr int width = (inner - 3 * gap) / 4;
    int left = margin;
    const auto addButton = [this, &left](const char* name, const char* text,
                                         const QString& toolTip) {
        QToolButton* button = addToolButton(presetFrame, QLatin1String(name), QLatin1String(text),
                                            QStringLiteral("Presets, %1").arg(QLatin1String(text)),
                                            toolTip, {left, 358, width, 24});
        left += width + gap;
        return button;
    };
    save = addButton("save", "SAVE", QStringLiteral("Keep the changes of the selected preset."));
    revert =
        addButton("revert", "REVERT", QStringLiteral("Go back to the preset as it was saved."));
    saveas =
        addButton("saveas", "SAVE AS", QStringLiteral("Keep the current state as a new preset."));
    deletepreset =
        addButton("deletepreset", "DELETE", QStringLiteral("Delete the selected preset."));
}

void FullPowerForm::laySetlist()
{
    constexpr int titleTop = 394;
    constexpr int firstRow = 424;
    constexpr int rowStep = 22;
    constexpr int rowHeight = 20;
    constexpr int letterWidth = 14;
    constexpr int menuWidth = 121;
    constexpr int sendLeft = margin + letterWidth + menuWidth + 4;
    constexpr int sendWidth = 42;
    constexpr int receiveLeft = sendLeft + sendWidth + 4;
    constexpr int receiveWidth = drawerWidth - margin - receiveLeft;

    FormBuilder builder(presetFrame, QStringLiteral("Setlist"));
    builder.label(presetFrame, QStringLiteral("SETLIST"), {margin, titleTop, 80, 20}, "title")
        ->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    send_all = addToolButton(presetFrame, QStringLiteral("send_all"), QStringLiteral("SEND ALL"),
                             QStringLiteral("Setlist, send all"),
                             QStringLiteral("Send the whole setlist to the mixer's slots."),
                             {98, titleTop, 66, rowHeight});
    receive_all =
        addToolButton(presetFrame, QStringLiteral("receive_all"), QStringLiteral("RECEIVE ALL"),
                      QStringLiteral("Setlist, receive all"),
                      QStringLiteral("Fetch all slots of the mixer as new presets."),
                      {168, titleTop, 81, rowHeight});

    for (int slot = 0; slot < slotCount; ++slot) {
        const QChar letter = slotLetter(slot);
        const int y = firstRow + slot * rowStep;
        builder.label(presetFrame, letter, {margin, y, letterWidth - 2, rowHeight}, "title");
        auto* menu = new ElidingComboBox(presetFrame);
        menu->setObjectName(QStringLiteral("setlist") + letter);
        menu->setAccessibleName(QStringLiteral("Setlist, slot %1").arg(letter));
        menu->setToolTip(QStringLiteral("The preset that belongs in slot %1.").arg(letter));
        menu->setGeometry(margin + letterWidth, y, menuWidth, rowHeight);
        setlistMenus.append(menu);
        sendButtons.append(
            addToolButton(presetFrame, QStringLiteral("send") + letter, QStringLiteral("SEND"),
                          QStringLiteral("Setlist, send slot %1").arg(letter),
                          QStringLiteral("Send this preset to slot %1 of the mixer.").arg(letter),
                          {sendLeft, y, sendWidth, rowHeight}));
        receiveButtons.append(addToolButton(
            presetFrame, QStringLiteral("receive") + letter, QStringLiteral("RECEIVE"),
            QStringLiteral("Setlist, receive slot %1").arg(letter), receiveToolTip(letter),
            {receiveLeft, y, receiveWidth, rowHeight}));
    }
}
