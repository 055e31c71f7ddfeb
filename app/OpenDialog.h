#pragma once

#include "app/FileDialog.h"
#include "app/Prompts.h"

namespace quorvane {

/// Asks which file to open; one that is there.
class OpenDialog final : public FileDialog {
public:
    OpenDialog(const OpenQuestion& question, const Texts& texts, QWidget* parent);

protected:
    void Consider(const QString& path) override;
};

} // namespace quorvane
