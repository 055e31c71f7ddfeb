#pragma once

#include "app/Prompts.h"
#include "app/Texts.h"
#include "serial/PortDescriptions.h"
#include "serial/PortNames.h"

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

namespace Ui {
class FrmRS232CSetting;
}

namespace quorvane {

/// The port that the instrument is on, and its line settings. What is chosen is in the settings at once; they
/// go back to what they were when the dialog is left by anything but OK.
class FrmRS232CSetting final : public QDialog {
public:
    struct Parts {
        const PortNames& names;
        const PortProbe& probe;
        const PortDescriptions& descriptions;
        const Texts& texts;
        std::function<void(const Message&)> tell; ///< returns when the operator has read it
        std::string secondChannelPort;            ///< of a second channel; empty where there is none
    };
    FrmRS232CSetting(PortSettings& port, Parts parts, QWidget* parent);
    ~FrmRS232CSetting() override;

    /// A serial device has come or gone: the list of ports is read again.
    void DevicesChanged();

    void done(int result) override;

private:
    PortSettings& port_;
    Parts parts_;
    std::unique_ptr<Ui::FrmRS232CSetting> ui_;
};

} // namespace quorvane
