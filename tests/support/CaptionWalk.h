#pragma once

#include "resources/StringTable.h"

#include <QSize>
#include <QStringList>
#include <map>
#include <set>
#include <vector>

class QWidget;

namespace quorvane {

/// What a window says: place ("Command1 tooltip") and text, without marks of mnemonics and line breaks.
using Captions = std::map<QString, QString>;
/// Numbers of the table's texts that make up a caption, in turn; there may be several ways.
using Sources = std::set<std::vector<int>>;

/// Goes through all controls of windows in one language and fails the test for each that breaks a rule: a
/// caption that is not the table's, a control without a name, a text that is cut off, controls that overlap,
/// a mnemonic that is there twice.
class CaptionWalk {
public:
    /// @param values  object names of controls that show a value or a text of the toolkit's own
    /// @param smallestScreen  the room that the smallest screen has between title bar and taskbar
    CaptionWalk(TableLanguage language, QStringList values, QSize smallestScreen);

    /// Looks at the visible `window` page by page, at its size and at its smallest.
    Captions Visit(QWidget& window);
    [[nodiscard]] Sources SourcesOf(const QString& caption) const;

private:
    [[nodiscard]] bool IsValue(const QWidget& widget) const;
    void Collect(const QWidget& widget, Captions& captions) const;
    void LookAtPage(QWidget& window, bool smallest) const;

    std::map<QString, std::vector<int>> texts_;
    std::vector<std::pair<QString, int>> patterns_; ///< texts with a place for a value
    QStringList values_;
    QSize smallestScreen_;
};

/// Fails the test for each caption that is not the same text of the table in both languages.
void ExpectTwins(const CaptionWalk& english, const Captions& inEnglish, const CaptionWalk& japanese,
                 const Captions& inJapanese);

} // namespace quorvane
