#pragma once

#include <QList>
#include <QPageSize>
#include <QPrinter>
#include <QStringList>

namespace quorvane {

/// What is known of a printer.
struct PrinterFacts {
    QPrinter::PrinterState state = QPrinter::Idle;
    QList<QPageSize> papers; ///< empty when it does not tell
    QPageSize usualPaper;
};

/// The printers of this computer.
class Printers {
public:
    virtual ~Printers() = default;
    [[nodiscard]] virtual QStringList Names() const = 0;
    /// The one that the user prints on usually; empty when there is none.
    [[nodiscard]] virtual QString DefaultName() const = 0;
    /// Asks the printer's driver, which may take a moment when it is a network's.
    [[nodiscard]] virtual PrinterFacts Facts(const QString& name) const = 0;
};

/// As the system lists them.
class SystemPrinters final : public Printers {
public:
    [[nodiscard]] QStringList Names() const override;
    [[nodiscard]] QString DefaultName() const override;
    [[nodiscard]] PrinterFacts Facts(const QString& name) const override;
};

/// Papers that a file can be given, the one that is usual in the user's country first.
[[nodiscard]] QList<QPageSize> FilePapers();

} // namespace quorvane
