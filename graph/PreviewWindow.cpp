#include "graph/PreviewWindow.h"

#include "app/QtText.h"
#include "resources/OwnTexts.h"
#include "resources/SystemTexts.h"

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
      view_(new QPrintPreviewWidget(&printer_, this))
{
    setWindowTitle(Shown(texts[kPreviewText]));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(kUsualSize);
    view_->setAccessibleName(windowTitle());
    connect(view_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* paper) {
        QPainter painter;
        if (painter.begin(paper))
            PaintChartPage(painter, painter.viewport(), page_);
    });

    auto* const buttons = new QDialogButtonBox(this);
    AddOrientations(*buttons, texts);
    QPushButton* const paper =
        buttons->addButton(Shown(texts[kPrintCommandText]), QDialogButtonBox::ActionRole);
    connect(paper, &QPushButton::clicked, this,
            [this] { print_(page_, printer_.pageLayout().orientation()); });
    QPushButton* const close = buttons->addButton(Shown(texts[kCloseText]), QDialogButtonBox::RejectRole);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    paper->setDefault(true);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(view_, 1);
    layout->addWidget(buttons);
    Turn(QPageLayout::Landscape);
}

PreviewWindow::~PreviewWindow()
{
    delete view_; // before its printer
}

void PreviewWindow::AddOrientations(QDialogButtonBox& buttons, const Texts& texts)
{
    auto* const group = new QButtonGroup(this);
    for (const auto& [orientation, id] : {std::pair(QPageLayout::Portrait, kPortraitText),
                                          std::pair(QPageLayout::Landscape, kLandscapeText)}) {
        QPushButton* const button = buttons.addButton(Shown(texts[id]), QDialogButtonBox::ActionRole);
        button->setCheckable(true);
        button->setChecked(orientation == QPageLayout::Landscape);
        group->addButton(button);
        connect(button, &QPushButton::clicked, this, [this, turned = orientation] { Turn(turned); });
    }
}

void PreviewWindow::Turn(QPageLayout::Orientation orientation)
{
    printer_.setPageOrientation(orientation);
    view_->updatePreview();
    view_->fitInView();
}

} // namespace quorvane
