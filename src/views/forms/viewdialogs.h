#pragma once

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTextBrowser;
class QWidget;

// The full-power view's forms of its in-window dialogs, built in code: each names the dialog that
// it is laid on, builds its controls as the dialog's children, and keeps pointers to them.

struct ProgressDialogForm {
    QLabel* found = nullptr;

    void setupUi(QWidget* dialog);
};

struct SaveAsDialogForm {
    QLineEdit* name = nullptr;
    QPushButton* save = nullptr;
    QPushButton* cancel = nullptr;

    void setupUi(QWidget* dialog);
};

struct DeleteDialogForm {
    // Which preset it is about.
    QLabel* label_2 = nullptr;
    QPushButton* delete_2 = nullptr;
    QPushButton* cancel = nullptr;

    void setupUi(QWidget* dialog);
};

struct ReceivePresetDialogForm {
    QLabel* label = nullptr;
    QRadioButton* toSetlistSlot = nullptr;
    QRadioButton* toNew = nullptr;
    QLineEdit* name = nullptr;
    QCheckBox* rememberReceiveDecision = nullptr;
    QPushButton* receive = nullptr;
    QPushButton* cancel = nullptr;

    void setupUi(QWidget* dialog);
};

struct ReceiveAsDialogForm {
    QLabel* label = nullptr;
    QLineEdit* name = nullptr;
    QPushButton* receive = nullptr;
    QPushButton* cancel = nullptr;

    void setupUi(QWidget* dialog);
};

struct ReceiveAllDialogForm {
    QLineEdit* prefix = nullptr;
    QPushButton* receive = nullptr;
    QPushButton* cancel = nullptr;

    void setupUi(QWidget* dialog);
};

struct RenameDialogForm {
    QLineEdit* name = nullptr;
    QPushButton* rename = nullptr;
    QPushButton* cancel = nullptr;

    void setupUi(QWidget* dialog);
};

struct ConnectionSyncDialogForm {
    QTextBrowser* textBrowser = nullptr;
    QPushButton* ok = nullptr;

    void setupUi(QWidget* dialog);
};
