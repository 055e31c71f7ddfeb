#pragma once

#include "app/Prompts.h"
#include "app/Texts.h"
#include "serial/PortDescriptions.h"
#include "serial/PortNames.h"
#include "serial/PortScan.h"
#include "serial/PortSettingEdit.h"

#include <QDialog>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QComboBox;

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

    /// A serial device has come or gone: the list of ports is read again, but not under the operator's hands.
    /// While it is dropped down this waits until it has folded up.
    void DevicesChanged();

    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void SetCaptions();
    void SetFonts();
    void Connect();
    void ReadPorts();
    void ShowPorts();
    void ShowNotes();
    void ShowLineSettings();
    void Combo2Click(int index);
    void Tell(const Message& message);

    const Parts parts_;
    PortSettingEdit edit_;
    std::vector<FoundPort> ports_;
    std::unique_ptr<Ui::FrmRS232CSetting> ui_;
    const std::array<std::pair<QComboBox*, LineField>, 5> lineLists_;
    bool shownBefore_ = false;
    bool readLater_ = false; ///< when the list of ports has folded up
    bool telling_ = false;
};

} // namespace quorvane
