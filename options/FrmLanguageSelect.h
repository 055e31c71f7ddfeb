#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "files/FileStore.h"
#include "options/LanguageEdit.h"

#include <QDialog>
#include <functional>
#include <memory>

namespace Ui {
class FrmLanguageSelect;
}

namespace quorvane {

/// Lets the operator choose the language before the main window opens. OK writes the choice to the file with
/// the language choice, whether it was touched or not; a failure is told. Left by any other way it writes
/// nothing, and the choice is what it was. The main window is opened by whoever shows this dialog, in all
/// cases.
class FrmLanguageSelect final : public QDialog {
public:
    struct Parts {
        FileStore& files;
        const Texts& texts;
        std::function<void(const Message&)> tell; ///< returns when the operator has read it
    };
    FrmLanguageSelect(ApplicationState& state, Parts parts, QWidget* parent = nullptr);
    ~FrmLanguageSelect() override;

    void done(int result) override;

private:
    void SetCaptions();
    void SetFonts();
    void ConnectControls();

    ApplicationState& state_;
    Parts parts_;
    LanguageEdit edit_;
    std::unique_ptr<Ui::FrmLanguageSelect> ui_;
    bool telling_ = false;
};

} // namespace quorvane
