#pragma once

#include "parameterpage.h"

class GlobalPresetInterface;

// A page whose controls are parameters that don't change with a preset. Their names are whole keys.
// A control with a row whose name is no key has the store wire alone, to its page's
// changedByUser().
class GlobalPage : public ParameterPage
{
    Q_OBJECT

public slots:
    void slotValueChanged() override;
    void slotSendSysexParameter() override;
    // Puts all controls to the values; a missing one, and what is no number, counts as its factory
    // value. Stores and sends nothing, and leaves the store wire connected.
    void slotRecallGlobal(QVariantMap globals);

signals:
    // value: as the file holds it, an integer, or true or false.
    void signalStoreGlobal(QString name, QVariant value);
    void signalSendParameter(QString name, int value);

protected:
    // globals must outlive the page; it starts their delayed save.
    GlobalPage(QWidget* parent, const QString& spokenName, GlobalPresetInterface* globals);

    void store(const Control& control, int value) override;
    std::optional<int> recalled(const Control& control, const QVariantMap& globals) const override;
    bool isSent(const Control& control) const override;

private:
    GlobalPresetInterface* const globalStore;
};
