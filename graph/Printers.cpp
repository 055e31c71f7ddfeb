#include "graph/Printers.h"

#include <QLocale>
#include <QPrinterInfo>

namespace quorvane {

QStringList SystemPrinters::Names() const
{
    return QPrinterInfo::availablePrinterNames();
}

QString SystemPrinters::DefaultName() const
{
    return QPrinterInfo::defaultPrinterName();
}

PrinterFacts SystemPrinters::Facts(const QString& name) const
{
    const QPrinterInfo printer = QPrinterInfo::printerInfo(name);
    return {printer.state(), printer.supportedPageSizes(), printer.defaultPageSize()};
}

QList<QPageSize> FilePapers()
{
    QList<QPageSize> papers;
    for (const auto id : {QPageSize::A4, QPageSize::A3, QPageSize::A5, QPageSize::JisB4, QPageSize::JisB5,
                          QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid})
        papers += QPageSize(id);
    if (QLocale::system().measurementSystem() == QLocale::ImperialUSSystem)
        papers.move(papers.indexOf(QPageSize(QPageSize::Letter)), 0);
    return papers;
}

} // namespace quorvane
