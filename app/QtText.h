#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quorvane {

/// Core's texts are UTF-8, the toolkit's are its own.
[[nodiscard]] inline QString Shown(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string Typed(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// "Concentration [mg/m3]" on two lines, the unit on the second.
[[nodiscard]] inline QString UnitBelow(QString caption)
{
    return caption.replace(QStringLiteral(" ["), QStringLiteral("\n["));
}

} // namespace quorvane
