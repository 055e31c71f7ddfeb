#pragma once

#include "graph/Printers.h"

#include <map>
#include <utility>

namespace quorvane {

/// Printers that a test describes.
class FixedPrinters : public Printers {
public:
    QStringList names;
    QString defaultName;
    std::map<QString, PrinterFacts> facts;

    QStringList Names() const override { return names; }
    QString DefaultName() const override { return defaultName; }
    PrinterFacts Facts(const QString& name) const override { return facts.at(name); }
};

} // namespace quorvane
