#include "viewdialogs.h"

#include "dialogparts.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextBrowser>

using namespace dialogparts;

namespace
{

constexpr int bodyTop = 48;
constexpr int lineHeight = 26;

int innerWidth(const QWidget* dialog) { return dialog->width() - 2 * margin; }

QLineEdit* addName(QWidget* dialog, const char* name, const QString& spoken, int y)
{
    return addLineEdit(dialog, name, spoken, QStringLiteral("At most 24 characters."),
                       {margin, y, innerWidth(dialog), lineHeight});
}

QLabel* addText(QWidget* dialog, const char* name, const QString& text, int y, int height)
{
    QLabel* label = addLabel(dialog, name, text, {margin, y, innerWidth(dialog), height});
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    return label;
}

QPushButton* addCancel(QWidget* dialog)
{
    return addButton(dialog, "cancel", QStringLiteral("Cancel"), 1,
                     QStringLiteral("Close this window and change nothing."));
}

} // namespace

void ProgressDialogForm::setupUi(QWidget* dialog)
{
    dialog->setObjectName(QStringLiteral("progressDialogForm"));
    dialog->setProperty("panel", QStringLiteral("dialog"));
    dialog->setAttribute(Qt::WA_StyledBackground);
    dialog->setAccessibleName(QStringLiteral("Progress"));
    auto* warningFrame = new QFrame(dialog);
    warningFrame->setObjectName(QStringLiteral("warningFrame"));
    warningFrame->setGeometry(4, 4, dialog->width() - 8, dialog->height() - 8);
    auto* warningSubFrame = new QFrame(warningFrame);
    warningSubFrame->setObjectName(QStringLiteral("warningSubFrame"));
    warningSubFrame->setGeometry(4, 4, warningFrame->width() - 8, warningFrame->height() - 8);
    found = addLabel(warningSubFrame, "found", {}, warningSubFrame->rect());
    found->setAlignment(Qt::AlignCenter);
    found->setWordWrap(true);
}

void SaveAsDialogForm::setupUi(QWidget* dialog)
{
    QLabel* label = setupDialog(dialog, "saveAsDialogForm", QStringLiteral("Save Preset As"));
    label->setObjectName(QStringLiteral("label"));
    name = addName(dialog, "name", QStringLiteral("Name of the new preset"), bodyTop - 2);
    save = addButton(dialog, "save", QStringLiteral("Save"), 0,
                     QStringLiteral("Keep the current state under this name."));
    save->setEnabled(false);
    cancel = addCancel(dialog);
}

void DeleteDialogForm::setupUi(QWidget* dialog)
{
    dialog->setObjectName(QStringLiteral("deleteDialogForm"));
    dialog->setProperty("panel", QStringLiteral("dialog"));
    dialog->setAttribute(Qt::WA_StyledBackground);
    dialog->setAccessibleName(QStringLiteral("Delete Preset"));
    QLabel* question =
        addLabel(dialog, "label", QStringLiteral("Are you sure you want to delete this preset?"),
                 {margin, 6, innerWidth(dialog), 20});
    question->setAlignment(Qt::AlignCenter);
    label_2 = addLabel(dialog, "label_2", {}, {margin, 26, innerWidth(dialog), 18});
    label_2->setAlignment(Qt::AlignCenter);
    label_2->setProperty("panel", QStringLiteral("caption"));
    delete_2 = addButton(dialog, "delete_2", QStringLiteral("Delete"), 0,
                         QStringLiteral("Delete the preset for good."));
    cancel = addCancel(dialog);
}

void ReceivePresetDialogForm::setupUi(QWidget* dialog)
{
    label = setupDialog(dialog, "receivePresetDialogForm", {});
    label->setObjectName(QStringLiteral("label"));
    const int width = innerWidth(dialog);
    const auto addChoice = [dialog, width](const char* choice, const QString& text,
                                           const QString& toolTip, int y) {
        auto* button = new QRadioButton(text, dialog);
        button->setObjectName(QLatin1String(choice));
        button->setToolTip(toolTip);
        button->setGeometry(margin, y, width, 22);
        return button;
    };
    addText(dialog, "label_2", QStringLiteral("Where should the preset go?"), bodyTop, 20);
    toSetlistSlot = addChoice("toSetlistSlot", QStringLiteral("Copy into Slot"),
                              QStringLiteral("Replace the preset that stands in this slot."), 72);
    toNew = addChoice("toNew", QStringLiteral("New preset named"),
                      QStringLiteral("Keep the preset that stands in this slot."), 98);
    name = addName(dialog, "name", QStringLiteral("Name of the new preset"), 124);
    rememberReceiveDecision = new QCheckBox(QStringLiteral("Remember My Decision"), dialog);
    rememberReceiveDecision->setObjectName(QStringLiteral("rememberReceiveDecision"));
    rememberReceiveDecision->setToolTip(QStringLiteral("Do the same next time without asking."));
    rememberReceiveDecision->setGeometry(margin, 160, width, 22);
    receive = addButton(dialog, "receive", QStringLiteral("Receive"), 0,
                        QStringLiteral("Fetch the slot from the mixer."));
    cancel = addCancel(dialog);
}

void ReceiveAsDialogForm::setupUi(QWidget* dialog)
{
    label = setupDialog(dialog, "receiveAsDialogForm", {});
    label->setObjectName(QStringLiteral("label"));
    name = addName(dialog, "name", QStringLiteral("Name of the new preset"), 64);
    receive = addButton(dialog, "receive", QStringLiteral("Receive"), 0,
                        QStringLiteral("Fetch the slot as a new preset of this name."));
    receive->setEnabled(false);
    cancel = addCancel(dialog);
}

void ReceiveAllDialogForm::setupUi(QWidget* dialog)
{
    setupDialog(dialog, "receiveAllDialogForm", QStringLiteral("Receive All"));
    addText(dialog, "label", QStringLiteral("Begin the names of the twelve new presets with:"),
            bodyTop, 36);
    prefix = addName(dialog, "prefix", QStringLiteral("Beginning of the names"), 88);
    receive = addButton(dialog, "receive", QStringLiteral("Receive"), 0,
                        QStringLiteral("Fetch all twelve slots from the mixer."));
    receive->setEnabled(false);
    cancel = addCancel(dialog);
}

void RenameDialogForm::setupUi(QWidget* dialog)
{
    QLabel* label = setupDialog(dialog, "renameDialogForm", QStringLiteral("Rename Preset"));
    label->setObjectName(QStringLiteral("label"));
    name = addName(dialog, "name", QStringLiteral("New name of the preset"), bodyTop);
    rename = addButton(dialog, "rename", QStringLiteral("Rename"), 0,
                       QStringLiteral("Give the preset this name."));
    rename->setEnabled(false);
    cancel = addCancel(dialog);
}

void ConnectionSyncDialogForm::setupUi(QWidget* dialog)
{
    setupDialog(dialog, "connectionSyncDialogForm", QStringLiteral("Connection Sync"));
    textBrowser = new QTextBrowser(dialog);
    textBrowser->setObjectName(QStringLiteral("textBrowser"));
    textBrowser->setAccessibleName(QStringLiteral("About the connection sync"));
    textBrowser->setGeometry(margin, bodyTop, innerWidth(dialog),
                             dialog->height() - bodyTop - buttonHeight - 2 * margin);
    textBrowser->setHtml(QStringLiteral(
        "<p><b>[CONNECTION SYNC]</b> is what the J-Sum sounds like right now. It is read when the "
        "J-Sum connects.</p>"
        "<p>While it is selected, changes made here and on the J-Sum follow each other, and all is "
        "saved by itself.</p>"
        "<p>Selecting another preset sends that one to the J-Sum. To keep the live settings, press "
        "<b>Save As</b>.</p>"
        "<p>It can't be renamed, moved or deleted.</p>"));
    ok = addButton(dialog, "ok", QStringLiteral("OK"), 0, QStringLiteral("Close this window."));
}
