#include "usbform.h"

#include "formbuilder.h"
#include "mixershape.h"
#include "stripparts.h"
#include "usbflow.h"

#include <QFrame>
#include <QLabel>
#include <QToolButton>

using namespace stripparts;

namespace
{

constexpr int captionsWidth = 80;
constexpr int flowWidth = (pageWidth - 3 * margin - captionsWidth) / channels::lastInput;
constexpr int flowTop = 32;
constexpr int flowHeight = 240;
constexpr int keysTop = flowTop + flowHeight;
constexpr int keyWidth = 44;
constexpr int keyHeight = 20;

void layCaptions(FormBuilder& builder, QFrame* panel)
{
    const auto caption = [&builder, panel](const char* text, int middle) {
        builder.lineLabel(panel, QLatin1String(text), {margin, middle - 8, captionsWidth, 16});
    };
    caption("Input", flowTop + UsbFlow::inputY);
    caption("PRE", flowTop + UsbFlow::preY);
    caption("Channel", flowTop + UsbFlow::channelY);
    caption("POST", flowTop + UsbFlow::postY);
    caption("Mix", flowTop + UsbFlow::mixY);
    caption("USB", keysTop + keyHeight / 2);
}

} // namespace

const QList<ButtonRow>& UsbForm::buttonRows()
{
    static const QList<ButtonRow> rows = [] {
        QList<ButtonRow> all;
        for (int channel = 1; channel <= channels::lastInput; ++channel) {
            all.append({QStringLiteral("usbtab_ch%1_input_prepost").arg(channel),
                        QStringLiteral("channel %1 send, pre or post").arg(channel),
                        QStringLiteral(
                            "Record channel %1 in the computer as it comes in, or after its EQ, "
                            "compressor and gate.")
                            .arg(channel),
                        "PRE", "POST"});
            all.append({QStringLiteral("usbtab_ch%1_output_prepost").arg(channel),
                        QStringLiteral("channel %1 return, pre or post").arg(channel),
                        QStringLiteral("Let the computer's sound into channel %1 before its EQ, "
                                       "compressor and gate, or after them.")
                            .arg(channel),
                        "PRE", "POST"});
        }
        return all;
    }();
    return rows;
}

UsbForm::UsbForm(QWidget* host, const QString& spokenPage)
{
    FormBuilder builder(host, spokenPage);
    QFrame* panel = builder.group("groupBox_Usb", QStringLiteral("USB ROUTING"),
                                  {margin, margin, pageWidth - 2 * margin, panelHeight});
    layCaptions(builder, panel);
    for (int channel = 1; channel <= channels::lastInput; ++channel) {
        const int left = captionsWidth + (channel - 1) * flowWidth;
        const int middle = left + flowWidth / 2;
        builder.label(panel, QStringLiteral("CH %1").arg(channel), {left, 8, flowWidth, 16});
        auto* flow = new UsbFlow(panel);
        flow->setGeometry(left, flowTop, flowWidth, flowHeight);
        const auto key = [&](int number, int keyLeft, const char* caption) {
            const ButtonRow& row = buttonRows().at(2 * (channel - 1) + number);
            builder.label(panel, QLatin1String(caption),
                          {keyLeft, keysTop + keyHeight + 2, keyWidth, 14});
            return builder.button(panel, row, {keyLeft, keysTop, keyWidth, keyHeight});
        };
        QToolButton* send = key(0, middle - 2 - keyWidth, "Send");
        flow->setSwitches(send, key(1, middle + 2, "Return"));
    }
    builder.lineLabel(panel,
                      QStringLiteral("Send: what the computer records.   Return: what it plays.   "
                                     "PRE and POST: before and after EQ, compressor and gate."),
                      {margin, panelHeight - margin - 24, 640, 24});
}
