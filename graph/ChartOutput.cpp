#include "graph/ChartOutput.h"

#include "app/ModalDialog.h"
#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "files/FileFaultText.h"
#include "graph/FrmPrint.h"
#include "graph/PreviewWindow.h"
#include "instrument/DateTimeText.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QBuffer>
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QStorageInfo>
#include <functional>
#include <utility>

namespace quorvane {
namespace {

constexpr int kPixelRatio = 2; ///< of saved and copied pictures
constexpr int kDotsPerInch = 96;
constexpr double kMetresPerInch = 0.0254;
constexpr double kPointsPerInch = 72;
constexpr QMarginsF kFileMargins(10, 10, 10, 10); ///< millimetres

QImage ImageOf(const FrozenChart& chart)
{
    QImage image(chart.size * kPixelRatio, QImage::Format_RGB32);
    if (image.isNull())
        return image;
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(kPixelRatio, kPixelRatio);
    PaintFrozen(painter, chart);
    painter.end();
    const int dotsPerMetre = qRound(kDotsPerInch * kPixelRatio / kMetresPerInch);
    image.setDotsPerMeterX(dotsPerMetre); // so that it is pasted in the size that it has on the screen
    image.setDotsPerMeterY(dotsPerMetre);
    return image;
}

QByteArray PngOf(const FrozenChart& chart)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return ImageOf(chart).save(&buffer, "PNG") ? bytes : QByteArray();
}

/// @param paint  on the page that `writer` has been told by `arrange`
QByteArray PdfOf(const QString& title, const std::function<void(QPdfWriter& writer)>& arrange,
                 const std::function<void(QPainter& painter)>& paint)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    arrange(writer);
    QPainter painter;
    if (!painter.begin(&writer))
        return {};
    paint(painter);
    return painter.end() ? bytes : QByteArray();
}

QByteArray PdfOf(const FrozenChart& chart, const QString& title)
{
    const auto arrange = [&](QPdfWriter& writer) {
        writer.setResolution(kDotsPerInch);
        writer.setPageSize(QPageSize(QSizeF(chart.size) * kPointsPerInch / kDotsPerInch, QPageSize::Point, {},
                                     QPageSize::ExactMatch));
        writer.setPageMargins({});
    };
    return PdfOf(title, arrange, [&](QPainter& painter) { PaintFrozen(painter, chart); });
}

QByteArray PdfOf(const ChartPage& page, const PrintChoice& choice)
{
    const auto arrange = [&](QPdfWriter& writer) {
        writer.setPageLayout(
            QPageLayout(choice.paper, choice.orientation, kFileMargins, QPageLayout::Millimeter));
    };
    return PdfOf(page.title, arrange,
                 [&](QPainter& painter) { PaintChartPage(painter, painter.viewport(), page); });
}

/// Why a file could not be written; the toolkit tells it in words of the system's language alone.
FileFaultKind FaultOf(const QString& path, qint64 size)
{
    const QFileInfo file(path);
    const QFileInfo folder(file.path());
    if (!folder.isDir())
        return FileFaultKind::NotFound;
    if (file.exists() && !file.isFile())
        return FileFaultKind::NotAFile;
    if (!folder.isWritable() || (file.exists() && !file.isWritable()))
        return FileFaultKind::NoPermission;
    const qint64 room = QStorageInfo(folder.path()).bytesAvailable();
    return room >= 0 && room < size ? FileFaultKind::NoSpace : FileFaultKind::Other;
}

/// Writes beside the file, flushes and renames. @return why not
std::optional<FileFaultKind> WriteFile(const QString& path, const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return FileFaultKind::Other;
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return std::nullopt;
    return FaultOf(path, bytes.size());
}

} // namespace

ChartOutput::ChartOutput(ChartWidget& chart, const ApplicationState& state, const MeasurementArrays& arrays,
                         const Texts& texts, const LocaleItems& locale, const LocalClock& clock,
                         Prompts& prompts, QWidget* parent)
    : chart_(chart),
      state_(state),
      arrays_(arrays),
      texts_(texts),
      locale_(locale),
      clock_(clock),
      prompts_(prompts),
      parent_(parent)
{
}

ChartPage ChartOutput::Page() const
{
    ChartPage page{.title = Shown(texts_[kProgramNameText]),
                   .facts = ChartFacts(state_, arrays_, texts_, locale_),
                   .notice = arrays_.Simulated ? Shown(texts_[kChartSimulatedText]) : QString(),
                   .charts = {},
                   .font = ProgramFont(texts_.Language())};
    for (const QSize size : UsualChartSizes())
        page.charts.push_back({chart_.Frozen(size), size});
    return page;
}

FrozenChart ChartOutput::Picture() const
{
    const QSize size = chart_.size().expandedTo(chart_.minimumSizeHint());
    return {chart_.Frozen(size), size};
}

void ChartOutput::Preview()
{
    const auto print = [this](const ChartPage& page, QPageLayout::Orientation orientation) {
        AskForPrinter(page, orientation);
    };
    auto* const preview = new PreviewWindow(Page(), texts_, print, parent_);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    preview->show();
}

void ChartOutput::Print()
{
    AskForPrinter(Page(), QPageLayout::Landscape);
}

void ChartOutput::AskForPrinter(const ChartPage& page, QPageLayout::Orientation orientation)
{
    const auto askFile = [this](const std::function<void(const std::string&)>& chosen) {
        prompts_.AskSaveNameLater(WhereToSave("PDF (*.pdf)|*.pdf|", {"pdf"}), chosen);
    };
    const auto print = [this, page](const PrintChoice& choice) { PrintAs(choice, page); };
    ShowModally(*new FrmPrint({.printers = printers_, .texts = texts_, .askFile = askFile, .print = print},
                              orientation, parent_));
}

void ChartOutput::PrintAs(const PrintChoice& choice, const ChartPage& page)
{
    if (choice.printer.isEmpty())
        return PrintToFile(choice, page);
    const QPrinterInfo info = QPrinterInfo::printerInfo(choice.printer);
    if (info.isNull()) // it has gone, and the toolkit would take another one for it
        return TellFailure(kNotPrintedText, {});
    // By its record: by its name the default printer, which may be slow, would be asked first.
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(page.title);
    printer.setPageSize(choice.paper);
    printer.setPageOrientation(choice.orientation);
    printer.setCopyCount(choice.copies);
    PrintOn(printer, page);
}

void ChartOutput::PrintToFile(const PrintChoice& choice, const ChartPage& page)
{
    if (const auto fault = WriteFile(choice.file, PdfOf(page, choice)))
        TellFailure(kPictureNotSavedText, texts_[ReasonText(*fault)]);
}

void ChartOutput::PrintOn(QPrinter& printer, const ChartPage& page)
{
    QPainter painter;
    bool printed = painter.begin(&printer);
    const int sheets = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
    for (int sheet = 0; printed && sheet < sheets; ++sheet) {
        printed = sheet == 0 || printer.newPage();
        if (printed)
            PaintChartPage(painter, painter.viewport(), page);
    }
    if (!printed || !painter.end() || printer.printerState() == QPrinter::Error)
        TellFailure(kNotPrintedText, {});
}

SaveQuestion ChartOutput::WhereToSave(const std::string& filter, std::vector<std::string> extensions) const
{
    return {.filter = filter,
            .filterIndex = 1,
            .overwritePrompt = true,
            .defaultName = "Quorvane-" + FileStamp(clock_.Now()),
            .folder = state_.DefaultFolder,
            .extensions = std::move(extensions)};
}

void ChartOutput::SaveImage()
{
    prompts_.AskSaveNameLater(WhereToSave("PNG (*.png)|*.png|PDF (*.pdf)|*.pdf|", {"png", "pdf"}),
                              [this, picture = Picture()](const std::string& name) { Save(picture, name); });
}

void ChartOutput::Save(const FrozenChart& picture, const std::string& name)
{
    const QString path = Shown(name);
    const bool pdf = path.endsWith(u".pdf"_qs, Qt::CaseInsensitive);
    const QByteArray bytes = pdf ? PdfOf(picture, Shown(texts_[kProgramNameText])) : PngOf(picture);
    if (const auto fault = WriteFile(path, bytes))
        TellFailure(kPictureNotSavedText, texts_[ReasonText(*fault)]);
}

void ChartOutput::Copy()
{
    QGuiApplication::clipboard()->setImage(ImageOf(Picture()));
}

void ChartOutput::TellFailure(int textId, const std::string& reason)
{
    prompts_.Tell({.text = texts_[textId] + (reason.empty() ? "" : "\r\n" + reason),
                   .icon = Icon::Critical,
                   .titleId = kProgramNameText,
                   .buttons = Buttons::Ok});
}

} // namespace quorvane
