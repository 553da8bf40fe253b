#pragma once

#include "controlrow.h"

class FormBuilder;
class QComboBox;
class QPushButton;
class QToolButton;
class QWidget;

// The form of the settings dialog, 850 by 336 pixels: the parameters that don't change with a
// preset, the USB audio driver's two menus, and the editor's own preferences. Nothing that is
// needed stands within 26 pixels of the left and right edge, since the dialog is wider than the
// smallest face that it is shown on.
struct SettingsForm {
    static constexpr int width = 850;
    static constexpr int height = 336;

    static const QList<ControlRow>& controlRows();
    static const QList<ButtonRow>& buttonRows();
    static const QList<ChoiceRow>& choiceRows();

    // Of the dialog: the frame, the heading and its two buttons, from which Escape closes it.
    void setupDialog(QWidget* dialog);
    // Of the page on it.
    void setupUi(QWidget* host);

    QPushButton* close_button = nullptr;
    QPushButton* globalSendButton = nullptr;
    QWidget* advancedFrame = nullptr;
    QComboBox* usb_sample_rate = nullptr;
    QComboBox* usb_buffer = nullptr;
    QPushButton* controlPanel = nullptr;
    QToolButton* auto_check_for_updates = nullptr;
    QToolButton* view_linking_enable = nullptr;
    QToolButton* hui = nullptr;
    QToolButton* huiHelp = nullptr;
    QPushButton* reset_receive_decision = nullptr;
    // What means nothing while there is no mixer.
    QList<QWidget*> mixerParts{};

private:
    void layMixer(FormBuilder& builder);
    void layUsb(FormBuilder& builder);
    void layPreferences(FormBuilder& builder);
};
