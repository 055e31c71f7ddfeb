#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "files/FileStore.h"
#include "files/SettingsFile.h"
#include "options/OptionEdit.h"
#include "stored/DriveFolders.h"

#include <QDialog>
#include <functional>
#include <memory>

namespace Ui {
class FrmOption;
}

namespace quorvane {

/// Data folder, run mode, language. What is changed is in the state at once; it goes back to what it was when
/// the dialog is left by anything but OK.
class FrmOption final : public QDialog {
public:
    struct Parts {
        FileStore& files;             ///< for the file with the language choice
        const SettingsFile& settings; ///< what it cannot hold holds for this session only
        const DriveFolders& drives;
        const Texts& texts;
        std::function<void(const Message&)> tell; ///< returns when the operator has read it
    };
    FrmOption(ApplicationState& state, Parts parts, QWidget* parent);
    ~FrmOption() override;

    void done(int result) override;

private:
    void SetCaptions();
    void SetFonts();
    void ShowState();
    void ConnectControls();
    void Command3Click();

    ApplicationState& state_;
    Parts parts_;
    OptionEdit edit_;
    std::unique_ptr<Ui::FrmOption> ui_;
    bool busy_ = false; ///< a message or the folder chooser is open
};

} // namespace quorvane
