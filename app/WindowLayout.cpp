#include "app/WindowLayout.h"

#include "app/QtText.h"
#include "files/AppFiles.h"

#include <QHash>
#include <QHeaderView>
#include <QMainWindow>
#include <QSplitter>

namespace quorvane {
namespace {

constexpr std::size_t kLargestLayout = 64 << 10;
constexpr int kWidestColumn = 2000;

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
    const auto state = [&](const char* key) { return QByteArray::fromBase64(values.value(key)); };
    controls_.window.restoreGeometry(state("Window"));
    controls_.splitter.restoreState(state("Division"));
    // Columns of another program version would hide or mix up those of this one.
    if (const QList<QByteArray> widths = values.value("Columns").split(',');
        widths.size() == controls_.columns.count())
        for (int column = 0; column < controls_.columns.count(); ++column)
            if (const int width = widths[column].toInt();
                width >= controls_.columns.minimumSectionSize() && width <= kWidestColumn)
                controls_.columns.resizeSection(column, width);
    const int span = values.value("Span").toInt();
    return span >= 1 && span <= 4 ? span : 0;
}

void WindowLayout::Keep(int span)
{
    QByteArrayList widths;
    for (int column = 0; column < controls_.columns.count(); ++column)
        widths += QByteArray::number(controls_.columns.sectionSize(column));
    const QByteArray text = Line("Window", controls_.window.saveGeometry().toBase64()) +
                            Line("Division", controls_.splitter.saveState().toBase64()) +
                            Line("Columns", widths.join(',')) + Line("Span", QByteArray::number(span));
    static_cast<void>(store_.Replace(path_, text.toStdString()));
}

} // namespace quorvane
