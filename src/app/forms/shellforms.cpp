#include "shellforms.h"

#include "forms/dialogparts.h"

#include <QCoreApplication>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QTextEdit>
#include <QToolButton>
#include <QWidget>

using namespace dialogparts;

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
    editorVersion = addNamedValue(dialog, "editorVersion", QStringLiteral("Editor version"), 44);
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
    scroll = new QScrollArea(dialog);
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
