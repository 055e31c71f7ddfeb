#pragma once

#include "app/Texts.h"
#include "graph/GraphSelection.h"

#include <QDialog>
#include <array>
#include <functional>
#include <memory>

class QCheckBox;

namespace Ui {
class FrmGraphSetting;
}

namespace quorvane {

/// Which curves and alarm lines the chart shows. What is clicked is in the flags at once; they go back to
/// what they were when the dialog is left by anything but OK. It is not left while no curve is chosen.
class FrmGraphSetting final : public QDialog {
public:
    /// @param tell  shows a message and returns when the operator has read it
    FrmGraphSetting(GraphFlags& flags, const Texts& texts, std::function<void(const Message&)> tell,
                    QWidget* parent);
    ~FrmGraphSetting() override;

    void done(int result) override;

private:
    void SetFonts();
    void SetCaptions();
    void ConnectBoxes();
    void Refresh();
    void FocusFirst();

    const Texts& texts_;
    std::function<void(const Message&)> tell_;
    GraphSelection selection_;
    std::unique_ptr<Ui::FrmGraphSetting> ui_;
    const std::array<QCheckBox*, kGraphChoices.size()> boxes_; ///< in the order of `kGraphChoices`
    bool telling_ = false;
};

} // namespace quorvane
