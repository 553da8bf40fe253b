#pragma once

#include "parameterpage.h"

// A page whose controls are parameters of a preset.
class PresetPage : public ParameterPage
{
    Q_OBJECT

public slots:
    void slotValueChanged() override;
    void slotSendSysexParameter() override;
    // Puts all controls to a preset's values; a missing one counts as 0. Stores nothing, and leaves
    // the store wire connected.
    void slotRecallPreset(QVariantMap preset);

signals:
    // presetNum is always -1, the current preset.
    void signalStoreValue(QString name, QVariant value, int presetNum);
    void signalCheckSavedState(int presetNum);
    void signalSendPresetParameter(QString name, int value);

protected:
    using ParameterPage::ParameterPage;

    void store(const Control& control, int value) override;
    std::optional<int> recalled(const Control& control, const QVariantMap& preset) const override;
    // Whether a recall lets events pass before it lays the preset on the controls.
    virtual bool letsEventsPass() const { return true; }

private:
    int recallNumber = 0;
};
