#include "app/WindowLayout.h"

#include "app/QtText.h"
#include "files/AppFiles.h"

#include <QHash>
#include <QHeaderView>
#include <QMainWindow>
#include <QScreen>
#include <QSplitter>
#include <algorithm>

namespace quorvane {
namespace {

constexpr std::size_t kLargestLayout = 64 << 10;
constexpr int kWidestColumn = 2000;
constexpr int kWidestPart = 100'000; // beyond any desktop

QByteArray Line(const char* key, const QByteArray& value)
{
    return QByteArray(key) + '=' + value + "\r\n";
}

QHash<QByteArray, QByteArray> Values(const std::string& bytes)
{
    QHash<QByteArray, QByteArray> values;
    for (const QByteArray& line : QByteArray::fromStdString(bytes).split('\n')) {
        const qsizetype sign = line.indexOf('=');
        if (sign > 0)
            values.insert(line.left(sign), line.mid(sign + 1).trimmed());
    }
    return values;
}

QByteArray Listed(const QList<int>& numbers)
{
    QByteArrayList texts;
    for (const int number : numbers)
        texts += QByteArray::number(number);
    return texts.join(',');
}

/// What is no number counts as 0.
QList<int> Numbers(const QByteArray& text)
{
    QList<int> numbers;
    for (const QByteArray& number : text.split(','))
        numbers += number.toInt();
    return numbers;
}

/// The toolkit believes the sizes and places that it is given. A window may be larger than the desktop, but
/// not without measure.
void RestoreWindow(QMainWindow& window, const QByteArray& state)
{
    const QRect usual = window.geometry();
    if (!window.restoreGeometry(state))
        return;
    const QRect desktop = window.screen()->virtualGeometry();
    const QRect place = window.geometry();
    const bool sensible = place.width() <= 2 * desktop.width() && place.height() <= 2 * desktop.height();
    if (!sensible || !desktop.intersects(place)) {
        window.setWindowState(Qt::WindowNoState);
        window.setGeometry(usual);
    }
}

} // namespace

WindowLayout::WindowLayout(FileStore& store, const std::string& folder, Controls controls)
    : store_(store), path_(FileInFolder(folder, "QuorvaneWindow.ini")), controls_(controls)
{
}

int WindowLayout::Restore()
{
    std::string bytes;
    if (store_.ReadWhole(path_, bytes) || bytes.size() > kLargestLayout)
        return 0;
    const auto values = Values(bytes);
    RestoreWindow(controls_.window, QByteArray::fromBase64(values.value("Window")));
    const QList<int> division = Numbers(values.value("Division"));
    if (division.size() == controls_.splitter.count() &&
        std::ranges::all_of(division, [](int size) { return size >= 0 && size <= kWidestPart; }))
        controls_.splitter.setSizes(division);
    // Columns of another program version would hide or mix up those of this one.
    if (const QList<int> widths = Numbers(values.value("Columns"));
        widths.size() == controls_.columns.count())
        for (int column = 0; column < controls_.columns.count(); ++column)
            if (const int width = widths[column];
                width >= controls_.columns.minimumSectionSize() && width <= kWidestColumn)
                controls_.columns.resizeSection(column, width);
    const int span = values.value("Span").toInt();
    return span >= 1 && span <= 4 ? span : 0;
}

void WindowLayout::Keep(int span)
{
    QList<int> widths;
    for (int column = 0; column < controls_.columns.count(); ++column)
        widths += controls_.columns.sectionSize(column);
    const QByteArray text = Line("Window", controls_.window.saveGeometry().toBase64()) +
                            Line("Division", Listed(controls_.splitter.sizes())) +
                            Line("Columns", Listed(widths)) + Line("Span", QByteArray::number(span));
    static_cast<void>(store_.Replace(path_, text.toStdString()));
}

} // namespace quorvane
