#include "graph/PreviewWindow.h"

#include "app/ProgramFont.h"
#include "app/QtText.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

#include <QAbstractScrollArea>
#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace quorvane {
namespace {

constexpr QSize kUsualSize(900, 700);

} // namespace

PreviewWindow::PreviewWindow(ChartPage page, const Texts& texts, Print print, QWidget* parent)
    : QDialog(parent),
      page_(std::move(page)),
      print_(std::move(print)),
      view_(new QPrintPreviewWidget(&printer_, this)),
      upright_(new QPushButton(this)),
      across_(new QPushButton(this)),
      paper_(new QPushButton(this)),
      close_(new QPushButton(this))
{
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(kUsualSize);
    connect(view_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* paper) {
        QPainter painter;
        if (painter.begin(paper))
            PaintChartPage(painter, painter.viewport(), page_);
    });
    AddButtons();
    SetWindowFont(*this, texts);
    SetCaptions(texts);
    Turn(QPageLayout::Landscape);
}

PreviewWindow::~PreviewWindow()
{
    delete view_; // before its printer
}

void PreviewWindow::AddButtons()
{
    auto* const orientations = new QButtonGroup(this);
    for (const auto& [button, orientation] :
         {std::pair(upright_, QPageLayout::Portrait), std::pair(across_, QPageLayout::Landscape)}) {
        button->setCheckable(true);
        button->setChecked(orientation == QPageLayout::Landscape);
        orientations->addButton(button);
        connect(button, &QPushButton::clicked, this, [this, turned = orientation] { Turn(turned); });
    }
    connect(paper_, &QPushButton::clicked, this,
            [this] { print_(page_, printer_.pageLayout().orientation()); });
    connect(close_, &QPushButton::clicked, this, &QDialog::close);
    paper_->setDefault(true);

    auto* const buttons = new QDialogButtonBox(this);
    for (QPushButton* const button : {upright_, across_, paper_})
        buttons->addButton(button, QDialogButtonBox::ActionRole);
    buttons->addButton(close_, QDialogButtonBox::RejectRole);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(view_, 1);
    layout->addWidget(buttons);
}

void PreviewWindow::SetCaptions(const Texts& texts)
{
    setWindowTitle(Shown(texts[kPreviewText]));
    for (auto* const page : view_->findChildren<QAbstractScrollArea*>()) // it has the focus
        page->setAccessibleName(windowTitle());
    for (const auto& [button, id] : {std::pair(upright_, static_cast<int>(kPortraitText)),
                                     std::pair(across_, static_cast<int>(kLandscapeText)),
                                     std::pair(paper_, static_cast<int>(kPrintCommandText)),
                                     std::pair(close_, static_cast<int>(kCloseText))})
        button->setText(Shown(texts[id]));
}

void PreviewWindow::Turn(QPageLayout::Orientation orientation)
{
    printer_.setPageOrientation(orientation);
    view_->updatePreview();
    view_->fitInView();
}

} // namespace quorvane
