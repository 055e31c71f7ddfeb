#include "app/ToolkitLanguage.h"

#include "app/ProgramFont.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

namespace quorvane {
namespace {

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

} // namespace

void UseToolkitLanguage(QApplication& application, TableLanguage language)
{
    Translate(application, language);
    QApplication::setFont(ProgramFont(language));
}

} // namespace quorvane
