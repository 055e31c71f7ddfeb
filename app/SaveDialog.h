#pragma once

#include "app/FileDialog.h"
#include "app/Prompts.h"

namespace quorvane {

/// Asks where to save. Before a file is replaced the operator is asked.
class SaveDialog final : public FileDialog {
public:
    SaveDialog(SaveQuestion question, const Texts& texts, QWidget* parent);

protected:
    /// With the extension that the question gives.
    [[nodiscard]] QString FinalPath(const QString& typed) const override;
    void Consider(const QString& path) override;

private:
    const SaveQuestion question_;
};

} // namespace quorvane
