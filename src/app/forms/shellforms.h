#pragma once

#include <QString>

class QLabel;
class QProgressBar;
class QPushButton;
class QScrollArea;
class QTextEdit;
class QToolButton;
class QWidget;

// The shell's forms, built in code: each names the dialog that it is laid on, builds its controls
// as the dialog's children, and keeps pointers to them. ViewManager owns them; the dialogs own the
// controls. A dialog's name is part of the Escape rule: one that holds "fw" or "about" closes by
// that key.

struct MainForm {
    QWidget* centralwidget = nullptr;
    QWidget* lowPowerViewWidget = nullptr;
    QWidget* fullPowerViewWidget = nullptr;
    QWidget* splashWidget = nullptr;
    // A two-state picture: checked while the mixer is connected.
    QToolButton* splashScreen = nullptr;
    QPushButton* enterDemoMode = nullptr;

    void setupUi(QWidget* window);
};

struct AboutDialogForm {
    QLabel* portName = nullptr;
    QLabel* editorVersion = nullptr;
    QLabel* fw_found = nullptr;
    QLabel* expected = nullptr;
    QPushButton* ok = nullptr;

    void setupUi(QWidget* dialog);
};

struct DemoDialogForm {
    QPushButton* ok = nullptr;

    void setupUi(QWidget* dialog);
};

struct FwOutOfDateDialogForm {
    QLabel* found = nullptr;
    QLabel* expected = nullptr;
    QPushButton* cancel = nullptr;
    QPushButton* update = nullptr;

    void setupUi(QWidget* dialog);
};

struct FwForceDialogForm {
    QLabel* version = nullptr;
    QPushButton* cancel = nullptr;
    QPushButton* update = nullptr;

    void setupUi(QWidget* dialog);
};

struct FwProgressDialogForm {
    QProgressBar* progressBar = nullptr;
    QTextEdit* console = nullptr;

    void setupUi(QWidget* dialog);
};

struct FwErrorDialogForm {
    // What is longer than the dialog scrolls in it.
    QScrollArea* scroll = nullptr;
    QLabel* errorMsg = nullptr;
    QPushButton* cancel = nullptr;
    QPushButton* update = nullptr;

    void setupUi(QWidget* dialog);
};

struct RestartDialogForm {
    void setupUi(QWidget* dialog);
};
