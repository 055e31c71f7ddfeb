#pragma once

#include "app/CheckedInputs.h"
#include "app/LocaleItems.h"
#include "app/Texts.h"
#include "measure/MeasureSettingEdit.h"

#include <QDialog>
#include <functional>
#include <memory>

namespace Ui {
class FrmMeasureSetting;
}

namespace quorvane {

/// How many readings a run takes, and how long one of them lasts. What is typed is in the settings at once;
/// they go back to what they were when the dialog is left by anything but OK. Giving up checks nothing.
class FrmMeasureSetting final : public QDialog {
public:
    /// @param tell  shows a message and returns when the operator has read it
    FrmMeasureSetting(MeasureSettings& settings, const Texts& texts, const LocaleItems& locale,
                      std::function<void(const Message&)> tell, QWidget* parent);
    ~FrmMeasureSetting() override;

    void done(int result) override;

private:
    void SetFonts(const Texts& texts);
    void SetCaptions(const Texts& texts);
    [[nodiscard]] CheckedInputs::Input InputOf(CheckedBox* box, MeasureField field, const Texts& texts);
    void Command1Click();
    void ShowAll();
    void ShowTotal();

    const MeasureSettings& settings_;
    const LocaleItems& locale_;
    MeasureSettingEdit edit_;
    std::unique_ptr<Ui::FrmMeasureSetting> ui_;
    CheckedInputs inputs_;
};

} // namespace quorvane
