#include "app/ToolkitLanguage.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

namespace quorvane {
namespace {

QStringList JapaneseFamilies()
{
    QStringList families;
    for (const QString& family :
         {u"Yu Gothic UI"_qs, u"Meiryo UI"_qs, u"MS UI Gothic"_qs, u"Noto Sans CJK JP"_qs})
        if (QFontDatabase::hasFamily(family))
            families += family;
    return families;
}

void Translate(QApplication& application, TableLanguage language)
{
    const QString name = u"toolkitTranslation"_qs;
    delete application.findChild<QTranslator*>(name, Qt::FindDirectChildrenOnly);
    if (language != TableLanguage::Japanese)
        return;
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(u"qtbase_ja"_qs, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return;
    translator->setObjectName(name);
    translator->setParent(&application);
    QApplication::installTranslator(translator.release());
}

// Chinese and Japanese share character codes and draw them differently: the first family that has one
// decides. Japanese texts are set in a Japanese family throughout; English ones keep the system's font and
// take a Japanese family for what it lacks, names of files for instance.
void ChooseFont(TableLanguage language)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    // By its real name: "Sans Serif" and the like are passed over in a list.
    const QStringList usual = {QFontInfo(font).family()};
    const QStringList japanese = JapaneseFamilies();
    font.setFamilies(language == TableLanguage::Japanese ? japanese + usual : usual + japanese);
    QApplication::setFont(font);
}

} // namespace

void UseToolkitLanguage(QApplication& application, TableLanguage language)
{
    Translate(application, language);
    ChooseFont(language);
}

} // namespace quorvane
