#include "secondeditor.h"

#include "pagestyle.h"

#include <QMessageBox>
#include <QPushButton>

bool mayGoOnWithoutSaving()
{
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("J-Sum Editor"),
                    QStringLiteral("At present another J-Sum Editor uses these presets."));
    box.setInformativeText(
        QStringLiteral("Two editors that save would undo each other's work. You can go on here, "
                       "but no preset, setlist or global setting will be saved, not even after the "
                       "other editor has ended."));
    box.setStyleSheet(dialogStyleSheet());
    const auto* goOn =
        box.addButton(QStringLiteral("Go On Without Saving"), QMessageBox::AcceptRole);
    QPushButton* quit = box.addButton(QStringLiteral("Quit"), QMessageBox::RejectRole);
    box.setDefaultButton(quit);
    box.setEscapeButton(quit);
    box.exec();
    return box.clickedButton() == goOn;
}
