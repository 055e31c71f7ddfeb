#include "app/ProgramFont.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QWidget>
#include <array>

namespace quorvane {
namespace {

/// The best first: what systems have been set in themselves, then what can be added to them.
constexpr std::array kJapaneseFamilies{
    u"Yu Gothic UI",     // every Windows since 8.1
    u"Meiryo UI",        // Windows with its Japanese fonts
    u"MS UI Gothic",     // every Windows
    u"Noto Sans CJK JP", // Debian, Ubuntu, Fedora
    u"Noto Sans JP",     // Fedora's smaller package; Windows of late
    u"Source Han Sans JP",
    u"Source Han Sans", // the same letters under their maker's name
    u"BIZ UDPGothic",   // Windows with its Japanese fonts, Debian, Ubuntu
    u"IPAPGothic",      // Debian, Ubuntu, Fedora
    u"IPAexGothic",
    u"TakaoPGothic", // earlier Ubuntu
    u"VL PGothic",   // earlier Fedora, Debian
};

} // namespace

// Chinese and Japanese share character codes and draw them differently: the first family that has one
// decides.
QStringList FontFamilies(TableLanguage language, const QString& usual,
                         const std::function<bool(const QString&)>& installed)
{
    QStringList japanese;
    for (const char16_t* const name : kJapaneseFamilies)
        if (const QString family = QString::fromUtf16(name); installed(family))
            japanese += family;
    return language == TableLanguage::Japanese ? japanese + QStringList{usual}
                                               : QStringList{usual} + japanese;
}

QFont ProgramFont(TableLanguage language)
{
    QFont font = QGuiApplication::font();
    // By its real name: "Sans Serif" and the like are passed over in a list.
    const QString usual = QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family();
    font.setFamilies(FontFamilies(language, usual,
                                  [](const QString& family) { return QFontDatabase::hasFamily(family); }));
    return font;
}

QFont Enlarged(QFont font, double factor)
{
    font.setPointSizeF(QFontInfo(font).pointSizeF() * factor); // a desktop may give it in pixels
    return font;
}

void SetWindowFont(QWidget& window, const Texts& texts)
{
    window.setFont(ProgramFont(texts.Language()));
}

} // namespace quorvane
