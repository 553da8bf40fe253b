#include "shellforms.h"

#include <QCoreApplication>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QTextEdit>
#include <QToolButton>
#include <QWidget>

namespace
{

constexpr int margin = 16;
constexpr int buttonHeight = 28;
constexpr int buttonWidth = 104;

QLabel* addLabel(QWidget* parent, const char* name, const QString& text, const QRect& place)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    // What is shown may come from a tool or a port's name: never markup.
    label->setTextFormat(Qt::PlainText);
    label->setGeometry(place);
    return label;
}

QLabel* addRichLabel(QWidget* parent, const char* name, const QString& text, const QRect& place)
{
    QLabel* label = addLabel(parent, name, text, place);
    label->setTextFormat(Qt::RichText);
    label->setWordWrap(true);
    return label;
}

void setupDialog(QWidget* dialog, const char* name, const QString& title)
{
    dialog->setObjectName(QLatin1String(name));
    dialog->setProperty("panel", QStringLiteral("dialog"));
    dialog->setAttribute(Qt::WA_StyledBackground);
    dialog->setAccessibleName(title);
    QLabel* heading =
        addLabel(dialog, "title", title, {0, 0, dialog->width(), margin + buttonHeight});
    heading->setProperty("panel", QStringLiteral("heading"));
    heading->setAlignment(Qt::AlignCenter);
}

// place counts from the right: 0 is the rightmost of the bottom row.
QPushButton* addButton(QWidget* dialog, const char* name, const QString& text, int place,
                       const QString& toolTip)
{
    auto* button = new QPushButton(text, dialog);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    button->setAutoDefault(true);
    button->setGeometry(dialog->width() - margin - buttonWidth - place * (buttonWidth + 8),
                        dialog->height() - margin - buttonHeight, buttonWidth, buttonHeight);
    return button;
}

// A line with its name at the left and its value, which it returns, at the right.
QLabel* addNamedValue(QWidget* dialog, const char* name, const QString& caption, int y)
{
    const int half = dialog->width() / 2;
    QLabel* left = addLabel(dialog, "", caption, {margin, y, half - margin - 8, 20});
    left->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    left->setProperty("panel", QStringLiteral("caption"));
    QLabel* value = addLabel(dialog, name, {}, {half + 8, y, half - margin - 8, 20});
    value->setAccessibleName(caption);
    return value;
}

} // namespace

void MainForm::setupUi(QWidget* window)
{
    centralwidget = new QWidget(window);
    centralwidget->setObjectName(QStringLiteral("centralwidget"));

    const auto addPage = [this](const char* name, const QRect& place) {
        auto* page = new QWidget(centralwidget);
        page->setObjectName(QLatin1String(name));
        page->setGeometry(place);
        return page;
    };
    lowPowerViewWidget = addPage("lowPowerViewWidget", {0, 0, 1200, 710});
    fullPowerViewWidget = addPage("fullPowerViewWidget", {0, 0, 1200, 750});
    splashWidget = addPage("splashWidget", {0, 0, 1200, 690});
    lowPowerViewWidget->hide();
    fullPowerViewWidget->hide();

    splashScreen = new QToolButton(splashWidget);
    splashScreen->setObjectName(QStringLiteral("splashScreen"));
    splashScreen->setCheckable(true);
    splashScreen->setEnabled(false);
    splashScreen->setGeometry(0, 20, 400, 475);
    splashScreen->setAccessibleName(QStringLiteral("J-Sum connection"));

    // Its words stand in the picture behind it.
    enterDemoMode = new QPushButton(splashWidget);
    enterDemoMode->setObjectName(QStringLiteral("enterDemoMode"));
    enterDemoMode->setFlat(true);
    enterDemoMode->setGeometry(85, 450, 450, 42);
    enterDemoMode->setCursor(Qt::PointingHandCursor);
    enterDemoMode->setFocusPolicy(Qt::TabFocus);
    enterDemoMode->setAccessibleName(QStringLiteral("Enter demo mode"));
    enterDemoMode->setToolTip(QStringLiteral("Explore the editor without a J-Sum."));
}

void AboutDialogForm::setupUi(QWidget* dialog)
{
    setupDialog(dialog, "aboutDialogForm", QStringLiteral("About J-Sum Editor"));
    QLabel* editor = addNamedValue(dialog, "editorVersion", QStringLiteral("Editor version"), 44);
    editor->setText(QCoreApplication::applicationVersion());
    portName = addNamedValue(dialog, "portName", QStringLiteral("Connected to"), 65);
    portName->setText(QStringLiteral("not connected"));
    fw_found = addNamedValue(dialog, "fw_found", QStringLiteral("Firmware found"), 86);
    expected = addNamedValue(dialog, "expected", QStringLiteral("Firmware expected"), 107);
    ok = addButton(dialog, "ok", QStringLiteral("OK"), 0, QStringLiteral("Close this window."));
}

void DemoDialogForm::setupUi(QWidget* dialog)
{
    setupDialog(dialog, "demoDialogForm", QStringLiteral("Demo Mode"));
    addRichLabel(
        dialog, "body",
        QStringLiteral(
            "<p>The editor opens without a J-Sum. <b>Nothing is sent and nothing is saved</b>: "
            "changes made here are gone when the demo ends.</p>"
            "<p>Connect a J-Sum at any time: the demo then ends by itself, and the editor "
            "shows the mixer.</p>"),
        {margin, 46, dialog->width() - 2 * margin, 134})
        ->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    ok = addButton(dialog, "ok", QStringLiteral("OK"), 0, QStringLiteral("Start the demo."));
}

void FwOutOfDateDialogForm::setupUi(QWidget* dialog)
{
    setupDialog(dialog, "fwOutOfDateDialogForm", QStringLiteral("Firmware Out of Date"));
    addRichLabel(dialog, "body",
                 QStringLiteral("The firmware of this J-Sum is not the one that this editor was "
                                "made for. Update it now?"),
                 {margin, 46, dialog->width() - 2 * margin, 56})
        ->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    found = addNamedValue(dialog, "found", QStringLiteral("Found"), 112);
    expected = addNamedValue(dialog, "expected", QStringLiteral("Expected"), 136);
    update = addButton(dialog, "update", QStringLiteral("Update"), 0,
                       QStringLiteral("Write the expected firmware into the J-Sum."));
    cancel = addButton(dialog, "cancel", QStringLiteral("Cancel"), 1,
                       QStringLiteral("Keep the firmware as it is and stay unconnected."));
}

void FwForceDialogForm::setupUi(QWidget* dialog)
{
    setupDialog(dialog, "fwForceDialogForm", QStringLiteral("Force Firmware Update"));
    addLabel(dialog, "question", QStringLiteral("Do you want to install"),
             {margin, 52, dialog->width() - 2 * margin, 20})
        ->setAlignment(Qt::AlignCenter);
    // Until a check has told the version.
    version = addLabel(dialog, "version", QStringLiteral("the firmware of this editor?"),
                       {margin, 74, dialog->width() - 2 * margin, 20});
    version->setAlignment(Qt::AlignCenter);
    update =
        addButton(dialog, "update", QStringLiteral("Update"), 0,
                  QStringLiteral("Write this firmware into the J-Sum, whatever it holds now."));
    cancel = addButton(dialog, "cancel", QStringLiteral("Cancel"), 1,
                       QStringLiteral("Leave the firmware as it is."));
}

void FwProgressDialogForm::setupUi(QWidget* dialog)
{
    setupDialog(dialog, "fwProgressDialogForm",
                QStringLiteral("Firmware Updating. Please Wait..."));
    const int width = dialog->width() - 2 * margin;
    addRichLabel(dialog, "body",
                 QStringLiteral("Please wait for the firmware<br>update to complete."),
                 {margin, 44, width, 40})
        ->setAlignment(Qt::AlignCenter);
    progressBar = new QProgressBar(dialog);
    progressBar->setObjectName(QStringLiteral("progressBar"));
    progressBar->setTextVisible(false);
    progressBar->setGeometry(margin, 92, width, 10);
    progressBar->setAccessibleName(QStringLiteral("Firmware update progress"));
    console = new QTextEdit(dialog);
    console->setObjectName(QStringLiteral("console"));
    console->setReadOnly(true);
    console->setUndoRedoEnabled(false);
    console->setAcceptRichText(false);
    console->setGeometry(margin, 112, width, dialog->height() - 112 - margin);
    console->setAccessibleName(QStringLiteral("Firmware tool output"));
}

void FwErrorDialogForm::setupUi(QWidget* dialog)
{
    setupDialog(dialog, "fwErrorDialogForm", QStringLiteral("Firmware Error"));
    // A tool's complaint may be of any length.
    auto* scroll = new QScrollArea(dialog);
    scroll->setObjectName(QStringLiteral("errorScroll"));
    scroll->setGeometry(margin, 46, dialog->width() - 2 * margin, 60);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    errorMsg = addLabel(dialog, "errorMsg", {}, {});
    errorMsg->setWordWrap(true);
    errorMsg->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    scroll->setWidget(errorMsg);
    update = addButton(dialog, "update", QStringLiteral("Restart J-Sum"), 0,
                       QStringLiteral("Restart the mixer; its firmware is then checked again."));
    cancel = addButton(dialog, "cancel", QStringLiteral("Cancel"), 1,
                       QStringLiteral("Close this window and leave the mixer as it is."));
}

void RestartDialogForm::setupUi(QWidget* dialog)
{
    setupDialog(dialog, "restartDialogForm", QStringLiteral("Restart Your J-Sum"));
    QLabel* image = addLabel(dialog, "image", {}, {(dialog->width() - 84) / 2, 36, 84, 56});
    image->setPixmap(QIcon(QStringLiteral(":/ui_images/ui_images/restart_jsum.svg"))
                         .pixmap(QSize(84, 56), dialog->devicePixelRatioF()));
    addRichLabel(dialog, "body",
                 QStringLiteral("Please restart your J-Sum and wait for the board to reconnect "
                                "after updating. <br>(This may take a moment)"),
                 {8, 96, dialog->width() - 16, 82})
        ->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
}
