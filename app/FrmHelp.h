#pragma once

#include "app/ApplicationState.h"
#include "app/Texts.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmHelp;
}

namespace quorvane {

/// About the program: its name, version and licence, and what support asks for first.
class FrmHelp final : public QDialog {
public:
    FrmHelp(const ApplicationState& state, const Texts& texts, QWidget* parent);
    ~FrmHelp() override;

private:
    void ShowProgram(const Texts& texts);
    void ShowPlace(const ApplicationState& state, const Texts& texts);

    std::unique_ptr<Ui::FrmHelp> ui_;
};

} // namespace quorvane
