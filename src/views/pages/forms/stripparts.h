#pragma once

#include "controlrow.h"

#include <QList>

class FormBuilder;
class QFrame;

// What the input channels and the mains have in common: their equaliser, compressor and gate, as
// rows and as panels.
namespace stripparts
{

inline constexpr QColor gainColor{242, 242, 242};
inline constexpr QColor eqHighColor{3, 174, 239};
inline constexpr QColor eqMidColor{255, 255, 0};
inline constexpr QColor eqLowColor{235, 7, 139};
inline constexpr QColor compressorColor{2, 166, 81};
inline constexpr QColor gateColor{241, 89, 42};
inline constexpr QColor sendColor{154, 106, 173};

inline constexpr int pageWidth = 912;
inline constexpr int pageHeight = 371;
inline constexpr int margin = 8;
inline constexpr int panelHeight = pageHeight - 2 * margin;
inline constexpr int eqWidth = 248;
inline constexpr int dynamicsWidth = 320;

// Yet without their parameters, which are the channel's own.
const QList<ControlRow>& controlRows();
const QList<ButtonRow>& buttonRows();

// A level on the volume curve, with its box. Its parameter is that of the name, if it is a key.
ControlRow faderRow(const QString& name, const QString& caption, const QString& spoken,
                    const QString& toolTip);

ControlRow panRow(const QString& name, const QString& spoken, int thickness,
                  const QString& toolTip);

// The row of that name. It must be there.
const ControlRow& rowNamed(const QList<ControlRow>& rows, const QString& name);
const ButtonRow& rowNamed(const QList<ButtonRow>& rows, const QString& name);

// The panels "groupBox_Eq" and "groupBox_Limiter", the latter with compressor and gate; as high as
// the page allows.
QFrame* layEq(FormBuilder& builder, const QList<ControlRow>& rows, int left, int width = eqWidth);
QFrame* layDynamics(FormBuilder& builder, const QList<ControlRow>& rows, int left,
                    int width = dynamicsWidth);

} // namespace stripparts
