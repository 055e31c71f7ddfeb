#include "tests/support/CaptionWalk.h"

#include "app/QtText.h"
#include "tests/support/PaintedTexts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QRegularExpression>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <algorithm>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

/// Without what the toolkit takes away or adds on its way to the screen.
QString Plain(QString text)
{
    static const QRegularExpression mnemonic(u"\\(&.\\)|&(?=[^&;])"_qs);
    text.remove(u"[*]"_qs).remove(mnemonic);
    if (text.endsWith(u"..."_qs))
        text.chop(3);
    return text.trimmed().isEmpty() ? text : text.simplified();
}

QString FromMarkup(QString text)
{
    return text.replace(u"&lt;"_qs, u"<"_qs).replace(u"&gt;"_qs, u">"_qs).replace(u"&amp;"_qs, u"&"_qs);
}

bool SaysSomething(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar letter) { return letter.isLetter(); });
}

QString NameOf(const QWidget& widget)
{
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                         : widget.objectName();
}

/// A part that the toolkit makes for itself, and that is its business.
bool IsToolkits(const QWidget& widget)
{
    static const QRegularExpression names(u"^qt_(?!msgbox|tabwidget_tabbar)|^Scroll(Left|Right)Button$"_qs);
    if (widget.objectName().contains(names) || widget.inherits("QTableCornerButton") ||
        widget.inherits("QSizeGrip"))
        return true;
    for (const QWidget* part = widget.parentWidget(); part != nullptr; part = part->parentWidget())
        if (part->inherits("QComboBoxPrivateContainer") || part->objectName().endsWith(u"_ext_button"_qs))
            return true;
    return false;
}

/// What a screen reader calls it; the toolkit's own answer takes a list's chosen entry for its name.
bool HasName(const QWidget& widget, const QWidget& window)
{
    const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
    const auto* const text = qobject_cast<const QLabel*>(&widget);
    const auto labels = window.findChildren<QLabel*>();
    return !widget.accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty()) ||
           (text != nullptr && !text->text().isEmpty()) || qobject_cast<const QTabBar*>(&widget) != nullptr ||
           std::ranges::any_of(labels, [&](const QLabel* label) {
               return label->buddy() == &widget && !label->text().trimmed().isEmpty();
           });
}

std::vector<QWidget*> Parts(const QWidget& window)
{
    std::vector<QWidget*> parts;
    for (QWidget* const widget : window.findChildren<QWidget*>())
        if (widget->window() == &window && !IsToolkits(*widget))
            parts.push_back(widget);
    return parts;
}

/// What has a caption of its own: at least this large. Nothing for what may be of any size.
QSize RoomFor(const QWidget& widget)
{
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        if (label->wordWrap())
            return {label->minimumSizeHint().width(), label->heightForWidth(label->width())};
        return label->text().isEmpty() ? QSize() : label->sizeHint();
    }
    if (const auto* const tabs = qobject_cast<const QTabBar*>(&widget))
        return tabs->sizeHint();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text().isEmpty() ? QSize() : button->sizeHint();
    if (const auto* const box = qobject_cast<const QLineEdit*>(&widget))
        return {box->fontMetrics().horizontalAdvance(box->text()) + box->width() -
                    box->contentsRect().width(),
                box->fontMetrics().height()};
    if (const auto* const list = qobject_cast<const QComboBox*>(&widget)) {
        QStyleOptionComboBox look;
        look.initFrom(list);
        look.subControls = QStyle::SC_All;
        const QRect text =
            list->style()->subControlRect(QStyle::CC_ComboBox, &look, QStyle::SC_ComboBoxEditField, list);
        int longest = 0;
        for (int i = 0; i < list->count(); ++i)
            longest = std::max(longest, list->fontMetrics().horizontalAdvance(list->itemText(i)));
        return {longest + list->width() - text.width(), list->minimumSizeHint().height()};
    }
    if (const auto* const header = qobject_cast<const QHeaderView*>(&widget)) {
        for (int i = 0; i < header->count(); ++i)
            EXPECT_TRUE(header->isSectionHidden(i) || header->orientation() == Qt::Vertical ||
                        header->sectionSize(i) >= header->sectionSizeHint(i))
                << "heading " << i;
        return header->orientation() == Qt::Vertical ? QSize() : QSize(0, header->sizeHint().height());
    }
    if (const auto* const table = qobject_cast<const QTableView*>(&widget)) {
        for (int i = 0; i < table->model()->columnCount(); ++i)
            EXPECT_GE(table->columnWidth(i),
                      static_cast<const QAbstractItemView*>(table)->sizeHintForColumn(i))
                << "column " << i;
    }
    return widget.minimumSizeHint();
}

void ExpectRoom(const QWidget& widget, bool smallest)
{
    const QSize room = RoomFor(widget);
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    const bool toldElsewhere =
        smallest && label != nullptr && FromMarkup(label->toolTip()) == label->text(); // elided
    EXPECT_TRUE(widget.width() >= room.width() || toldElsewhere)
        << NameOf(widget).toStdString() << " is " << widget.width() << " wide, its text " << room.width();
    EXPECT_GE(widget.height(), room.height()) << NameOf(widget).toStdString() << " is too low for its text";
    const QWidget& parent = *widget.parentWidget();
    const bool scrolls =
        parent.parentWidget() != nullptr && parent.parentWidget()->inherits("QAbstractScrollArea");
    EXPECT_TRUE(scrolls || parent.rect().contains(widget.geometry()))
        << NameOf(widget).toStdString() << " reaches beyond what it is on";
}

void Gather(QLayout& layout, std::vector<const QWidget*>& found)
{
    for (int i = 0; i < layout.count(); ++i) {
        if (const QWidget* const widget = layout.itemAt(i)->widget();
            widget != nullptr && widget->isVisible())
            found.push_back(widget);
        else if (layout.itemAt(i)->layout() != nullptr)
            Gather(*layout.itemAt(i)->layout(), found);
    }
}

void ExpectNoOverlap(const QWidget& parent)
{
    std::vector<const QWidget*> found;
    if (parent.layout() != nullptr)
        Gather(*parent.layout(), found);
    for (auto one = found.begin(); one != found.end(); ++one)
        for (auto other = one + 1; other != found.end(); ++other)
            EXPECT_FALSE((*one)->geometry().intersects((*other)->geometry()))
                << NameOf(**one).toStdString() << " and " << NameOf(**other).toStdString() << " overlap";
}

void ExpectDifferentMnemonics(const QStringList& texts, const QString& where)
{
    std::map<QChar, QString> taken;
    for (const QString& text : texts)
        if (const qsizetype mark = text.indexOf(u'&'); mark >= 0 && mark + 1 < text.size()) {
            const auto [holder, isNew] = taken.emplace(text[mark + 1].toUpper(), text);
            EXPECT_TRUE(isNew) << where.toStdString() << ": " << text.toStdString() << " and "
                               << holder->second.toStdString();
        }
}

} // namespace

CaptionWalk::CaptionWalk(TableLanguage language, QStringList values, QSize smallestScreen)
    : values_(std::move(values)), smallestScreen_(smallestScreen)
{
    const StringTable table(language);
    for (int id = 0; id < 10000; ++id) {
        const QString text = Plain(Shown(table.Text(id, 0)));
        if (text.contains(u"%1"_qs))
            patterns_.emplace_back(QRegularExpression::anchoredPattern(
                                       QRegularExpression::escape(text).replace(u"\\%1"_qs, u".+"_qs)),
                                   id);
        else if (!text.isEmpty())
            texts_[text].push_back(id);
    }
}

Sources CaptionWalk::SourcesOf(const QString& caption) const
{
    Sources found;
    for (const auto& [pattern, id] : patterns_)
        if (QRegularExpression(pattern).match(caption).hasMatch())
            found.insert({id});
    for (const auto& [text, ids] : texts_) {
        if (!caption.startsWith(text))
            continue;
        const QString rest = caption.mid(text.size()).trimmed();
        for (const int id : ids) {
            if (rest.isEmpty())
                found.insert({id});
            else if (SaysSomething(text))
                for (std::vector<int> further : SourcesOf(rest)) {
                    further.insert(further.begin(), id);
                    found.insert(further);
                }
        }
    }
    return found;
}

bool CaptionWalk::IsValue(const QWidget& widget) const
{
    return values_.contains(widget.objectName()) ||
           (widget.parentWidget() != nullptr && IsValue(*widget.parentWidget()));
}

void CaptionWalk::Collect(const QWidget& widget, Captions& captions) const
{
    const auto add = [&](const QString& what, const QString& text) {
        QString place = NameOf(widget) + u' ' + what;
        while (captions.contains(place))
            place += u'+';
        captions[place] = Plain(text);
    };
    add(u"title"_qs, widget.windowTitle());
    add(u"tooltip"_qs, FromMarkup(widget.toolTip()));
    add(u"accessible name"_qs, widget.accessibleName());
    add(u"description"_qs, widget.accessibleDescription());
    for (const QAction* const action : widget.actions())
        add(action->objectName() + u" text"_qs, action->text());
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        add(u"text"_qs, label->text());
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        add(u"text"_qs, button->text());
    if (const auto* const group = qobject_cast<const QGroupBox*>(&widget))
        add(u"text"_qs, group->title());
    if (const auto* const box = qobject_cast<const QLineEdit*>(&widget))
        add(u"placeholder"_qs, box->placeholderText());
    if (const auto* const tabs = qobject_cast<const QTabBar*>(&widget))
        for (int i = 0; i < tabs->count(); ++i)
            add(u"tab %1"_qs.arg(i), tabs->tabText(i));
    if (const auto* const list = qobject_cast<const QComboBox*>(&widget))
        for (int i = 0; i < list->count(); ++i)
            add(u"entry %1"_qs.arg(i), list->itemText(i));
    if (const auto* const header = qobject_cast<const QHeaderView*>(&widget);
        header != nullptr && !header->isHidden() && header->model() != nullptr &&
        header->orientation() == Qt::Horizontal)
        for (int i = 0; i < header->count(); ++i)
            captions[NameOf(*header->parentWidget()) + u" heading %1"_qs.arg(i)] =
                Plain(header->model()->headerData(i, Qt::Horizontal).toString());
}

void CaptionWalk::LookAtPage(QWidget& window, bool smallest) const
{
    QStringList mnemonics;
    for (QWidget* const widget : Parts(window)) {
        if (!widget->isVisible())
            continue;
        ExpectNoOverlap(*widget);
        if (const auto* const bar = qobject_cast<QMenuBar*>(widget))
            for (const QAction* const menu : bar->actions())
                mnemonics += menu->text();
        if (!IsValue(*widget) || qobject_cast<QComboBox*>(widget) == nullptr) // a path scrolls
            ExpectRoom(*widget, smallest);
        if (IsValue(*widget))
            continue;
        const auto* const label = qobject_cast<QLabel*>(widget);
        EXPECT_TRUE(label == nullptr || !label->pixmap().isNull() || !label->text().isEmpty())
            << NameOf(*widget).toStdString() << " says nothing";
        EXPECT_TRUE(HasName(*widget, window) || widget->focusPolicy() == Qt::NoFocus ||
                    widget->focusProxy() != nullptr)
            << NameOf(*widget).toStdString() << " has no name";
        if (const auto* const button = qobject_cast<QAbstractButton*>(widget))
            mnemonics += button->text();
        if (label != nullptr && label->buddy() != nullptr)
            mnemonics += label->text();
        if (const auto* const group = qobject_cast<QGroupBox*>(widget))
            mnemonics += group->title();
    }
    ExpectNoOverlap(window);
    ExpectDifferentMnemonics(mnemonics, NameOf(window));
    for (const QWidget* const more :
         window.findChildren<QWidget*>(QRegularExpression(u"_ext_button$|^Scroll(Left|Right)Button$"_qs)))
        EXPECT_FALSE(more->isVisible()) << "not all of " << NameOf(*more->parentWidget()).toStdString();
    for (const QString& text : PaintedTexts(window))
        EXPECT_TRUE(smallest || !text.contains(u'…')) << text.toStdString();
}

Captions CaptionWalk::Visit(QWidget& window)
{
    const auto pages = [&](bool smallest) {
        auto* const tabs = window.findChild<QTabWidget*>();
        for (int page = 0; page < (tabs == nullptr ? 1 : tabs->count()); ++page) {
            if (tabs != nullptr)
                tabs->setCurrentIndex(page);
            QApplication::processEvents();
            LookAtPage(window, smallest);
        }
    };
    QApplication::processEvents();
    const QSize usual = window.size();
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    pages(usual == least);
    EXPECT_TRUE(least == least.boundedTo(smallestScreen_))
        << "the window wants " << least.width() << " x " << least.height();
    window.resize(least);
    pages(true);
    window.resize(usual);

    Captions captions;
    Collect(window, captions);
    for (const QWidget* const widget : Parts(window))
        if (!IsValue(*widget))
            Collect(*widget, captions);
    for (const QMenu* const menu : window.findChildren<QMenu*>()) {
        if (IsToolkits(*menu) || menu->title().isEmpty())
            continue;
        Collect(*menu, captions);
        QStringList entries;
        for (const QAction* const action : menu->actions())
            entries += action->text();
        ExpectDifferentMnemonics(entries, menu->title());
    }
    for (const auto& [place, text] : captions)
        EXPECT_TRUE(!SaysSomething(text) || !SourcesOf(text).empty())
            << place.toStdString() << " is not the table's: " << text.toStdString();
    return captions;
}

void ExpectTwins(const CaptionWalk& english, const Captions& inEnglish, const CaptionWalk& japanese,
                 const Captions& inJapanese)
{
    for (const auto& [place, text] : inEnglish) {
        const auto twin = inJapanese.find(place);
        const QString there = twin == inJapanese.end() ? QString() : twin->second;
        EXPECT_EQ(text.isEmpty(), there.isEmpty()) << place.toStdString() << " is said in one language only";
        if (!SaysSomething(text))
            continue;
        const Sources one = english.SourcesOf(text);
        const Sources other = japanese.SourcesOf(there);
        EXPECT_TRUE(std::ranges::any_of(one, [&](const auto& ids) { return other.contains(ids); }))
            << place.toStdString() << ": " << text.toStdString() << " and " << there.toStdString();
    }
    EXPECT_EQ(inEnglish.size(), inJapanese.size());
}

} // namespace quorvane
