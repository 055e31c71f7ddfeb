#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "stored/DriveFolders.h"

#include <QDialog>
#include <functional>
#include <memory>

namespace Ui {
class FrmDriveList;
}

namespace quorvane {

/// Chooses a folder by drive and directory tree: the data folder when the chooser's mode is 1; with any other
/// mode it changes nothing. Each folder that is gone to is the data folder at once; Cancel puts the one
/// before back.
class FrmDriveList final : public QDialog {
public:
    struct Parts {
        const DriveFolders& drives;
        const Texts& texts;
        std::function<void(const Message&)> tell;           ///< returns when the operator has read it
        std::function<void(const std::string&)> showFolder; ///< puts the result into the calling dialog's box
    };
    FrmDriveList(ApplicationState& state, Parts parts, QWidget* parent);
    ~FrmDriveList() override;

    void done(int result) override;

private:
    ApplicationState& state_;
    Parts parts_;
    std::unique_ptr<Ui::FrmDriveList> ui_;
};

} // namespace quorvane
