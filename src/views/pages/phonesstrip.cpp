#include "phonesstrip.h"

#include "forms/outputforms.h"

PhonesStrip::PhonesStrip(QWidget* page)
    : PresetPage(page, QStringLiteral("Phones"), page->objectName())
{
    setObjectName(QStringLiteral("phones_"));
    const PhonesStripForm form(hostWidget(), spokenName());
    setGeometry(hostWidget()->geometry());
    adoptForm({}, {}, {PhonesStripForm::choiceRow()});
    clearFocusOnPress(form.panel);
}
