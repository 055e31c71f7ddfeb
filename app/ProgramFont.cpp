#include "app/ProgramFont.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QWidget>

namespace quorvane {
namespace {

QStringList JapaneseFamilies()
{
    QStringList families;
    for (const QString& family :
         {u"Yu Gothic UI"_qs, u"Meiryo UI"_qs, u"MS UI Gothic"_qs, u"Noto Sans CJK JP"_qs, u"Noto Sans JP"_qs,
          u"IPAPGothic"_qs, u"VL PGothic"_qs, u"TakaoPGothic"_qs})
        if (QFontDatabase::hasFamily(family))
            families += family;
    return families;
}

} // namespace

// Chinese and Japanese share character codes and draw them differently: the first family that has one
// decides. Japanese texts are set in a Japanese family throughout; English ones keep the system's font and
// take a Japanese family for what it lacks, names of files for instance.
QFont ProgramFont(TableLanguage language)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    // By its real name: "Sans Serif" and the like are passed over in a list.
    const QStringList usual = {QFontInfo(font).family()};
    const QStringList japanese = JapaneseFamilies();
    font.setFamilies(language == TableLanguage::Japanese ? japanese + usual : usual + japanese);
    return font;
}

void SetWindowFont(QWidget& window, const Texts& texts)
{
    window.setFont(ProgramFont(texts.Language()));
}

} // namespace quorvane
