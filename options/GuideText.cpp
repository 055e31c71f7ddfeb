#include "options/GuideText.h"

#include <QStringList>

namespace quorvane {

namespace {

/// A Japanese letter or full-width sign. None of them begins a list, a table or a heading.
bool IsFullWidth(QChar letter)
{
    const char16_t code = letter.unicode();
    return (code >= 0x3000 && code <= 0x9fff) || (code >= 0xff00 && code <= 0xffef);
}

} // namespace

QString WithoutBreaksInSentences(const QString& markdown)
{
    QString text;
    bool heading = false; // ends with its line
    for (const QString& line : markdown.split(u'\n')) {
        const QString inside = line.trimmed();
        const bool goesOn = !heading && !text.isEmpty() && !inside.isEmpty() && IsFullWidth(text.back()) &&
                            IsFullWidth(inside.front());
        if (!text.isNull() && !goesOn)
            text += u'\n';
        text += goesOn ? inside : line;
        heading = inside.startsWith(u'#');
    }
    return text;
}

QString HeadingAnchor(const QString& heading)
{
    QString anchor;
    for (const QChar letter : heading.trimmed().toLower()) {
        if (letter.isLetterOrNumber() || letter.isMark() || letter == u'_' || letter == u'-')
            anchor += letter;
        else if (letter == u' ')
            anchor += u'-';
    }
    return anchor;
}

} // namespace quorvane
