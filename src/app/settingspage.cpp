#include "settingspage.h"

#include "pagestyle.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>

namespace
{

bool isPhantom(const QString& name) { return name.contains(QLatin1String("_phantom")); }

} // namespace

SettingsPage::SettingsPage(QWidget* dialog, GlobalPresetInterface* globals)
    : GlobalPage(dialog, QStringLiteral("Settings"), globals)
{
    form.setupDialog(dialog);
    setStyleSheet(pageStyleSheet());
    resize(dialog->size());
    form.setupUi(hostWidget());
    adoptForm(SettingsForm::controlRows(), SettingsForm::buttonRows(), SettingsForm::choiceRows());
    lower();
    form.advancedFrame->show();
}

bool SettingsPage::changedByUser(const Control& control)
{
    if (const auto* menu = qobject_cast<QComboBox*>(control.object); menu != nullptr) {
        emit signalSetUsb(control.name(), menu->currentText());
        return false;
    }
    if (control.name().contains(QLatin1String("phantom")))
        emit signalPhantomChanged(control.name(), control.value());
    return true;
}

// The voltage is a choice, and shows itself.
void SettingsPage::showOwnState(const Control& control)
{
    QToolButton* button = control.button();
    if (button == nullptr || !isPhantom(control.name()))
        return;
    const QString style = button->isChecked()
        ? QStringLiteral("background-color:rgb(200,200,200); color: rgb(50,50,50);")
        : QStringLiteral("background-color: rgb(90, 90, 90); color: rgb(242, 242, 242);");
    if (button->styleSheet() != style)
        button->setStyleSheet(style);
}

void SettingsPage::showPhantom(int channel, bool on)
{
    const QString name =
        channel == 0 ? QStringLiteral("ch1_phantom") : QStringLiteral("ch2_phantom");
    const Control* control = controlNamed(name);
    const WireCut sendCut(sendWire(*control));
    const WireCut storeCut(storeWire(*control));
    setControl(*control, int{on});
}

void SettingsPage::showUsbSetting(const QString& name, const QString& text)
{
    auto* menu = hostWidget()->findChild<QComboBox*>(name);
    if (menu == nullptr || text.isEmpty())
        return;
    const QSignalBlocker quiet(menu);
    if (menu->findText(text) < 0)
        menu->addItem(text);
    menu->setCurrentText(text);
}

void SettingsPage::setMixerEnabled(bool enabled)
{
    for (QWidget* part : std::as_const(form.mixerParts))
        part->setEnabled(enabled);
}

void SettingsPage::slotReceiveGlobalParams(QString key, int value)
{
    // Others' keys come by here too.
    if (controlNamed(key) != nullptr)
        receive(key, value);
    else if (parametertable::find(key) == nullptr)
        qDebug() << "no control for" << key;
}
