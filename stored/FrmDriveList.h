#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"
#include "stored/DriveFolders.h"
#include "stored/FolderChoice.h"

#include <QDialog>
#include <functional>
#include <memory>
#include <vector>

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
    void SetCaptions();
    void SetFonts();
    void FillDrives();
    void ConnectControls();
    void Start();
    void Drive1Change(int index);
    void Dir1Change(const QString& folder);
    void ShowDrive();
    [[nodiscard]] std::optional<std::size_t> PresentDrive() const;
    void Tell(int textId);
    [[nodiscard]] QString Caption(const Drive& drive) const;

    Parts parts_;
    FolderChoice choice_;
    const std::vector<Drive> drives_; ///< in the order of the list
    std::unique_ptr<Ui::FrmDriveList> ui_;
    bool telling_ = false;
};

} // namespace quorvane
