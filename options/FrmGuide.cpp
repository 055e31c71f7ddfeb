#include "options/FrmGuide.h"

#include "app/ProgramFont.h"
#include "app/ProgramIcon.h"
#include "app/QtText.h"
#include "options/ui_FrmGuide.h"
#include "resources/OwnTexts.h"

#include <QAccessible>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <functional>

namespace quorvane {
namespace {

constexpr QSize kUsualSize(1040, 760);
constexpr int kTitleRoom = 12; ///< beside a title
constexpr int kBarRoom = 24;   ///< for the scroll bar of the contents
constexpr int kWidestContents = 340;

} // namespace

FrmGuide::FrmGuide(const Texts& texts)
    : texts_(texts), ui_([this] {
          auto ui = std::make_unique<Ui::FrmGuide>();
          ui->setupUi(this);
          return ui;
      }())
{
    setWindowIcon(ProgramIcon());
    resize(kUsualSize.boundedTo(screen()->availableSize()));
    ui_->Back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    ui_->Forward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
    for (QScrollBar* const bar : ui_->Contents->findChildren<QScrollBar*>())
        bar->setContextMenuPolicy(Qt::NoContextMenu); // it serves events until it is answered
    ui_->Splitter->setStretchFactor(1, 1);
    Connect();
    SetShortcuts();
    ui_->View->setFocus();
}

FrmGuide::~FrmGuide() = default;

void FrmGuide::Load()
{
    SetFonts();
    SetCaptions();
    ui_->View->ShowGuide(texts_.Language());
}

void FrmGuide::GoTo(const QString& chapter)
{
    ui_->View->GoTo(chapter);
}

bool FrmGuide::HasChapter(const QString& title) const
{
    return ui_->View->ChapterOf(title) != nullptr;
}

void FrmGuide::SetFonts()
{
    SetWindowFont(*this, texts_);
    ui_->View->SetTextFont(font());
}

void FrmGuide::SetCaptions()
{
    const auto text = [this](int id) { return Shown(texts_[id]); };
    setWindowTitle(text(kGuideTitleText));
    ui_->Contents->setHeaderLabel(text(kGuideChaptersText));
    ui_->Contents->setAccessibleName(text(kGuideChaptersText));
    ui_->View->setAccessibleName(text(kGuideTitleText));
    ui_->Label1->setText(text(kGuideFindText));
    ui_->Text1->setToolTip(text(kGuideFindTipText));
    ui_->Smaller->setText(text(kGuideSmallerText));
    ui_->Larger->setText(text(kGuideLargerText));
    struct Tip {
        QToolButton* button;
        int id;
        QKeySequence key;
    };
    for (const auto& [button, id, key] : {Tip{ui_->Back, kGuideBackText, Qt::ALT | Qt::Key_Left},
                                          Tip{ui_->Forward, kGuideForwardText, Qt::ALT | Qt::Key_Right},
                                          Tip{ui_->Smaller, kGuideSmallerTipText, Qt::CTRL | Qt::Key_Minus},
                                          Tip{ui_->Larger, kGuideLargerTipText, Qt::CTRL | Qt::Key_Plus}}) {
        const QString tip = Shown(FilledIn(texts_[id], Typed(key.toString(QKeySequence::NativeText))));
        button->setAccessibleName(tip);
        button->setToolTip(tip);
    }
    if (!ui_->Notice->text().isEmpty())
        ShowFound(false);
}

void FrmGuide::Connect()
{
    GuideView* const view = ui_->View;
    connect(ui_->Back, &QToolButton::clicked, view, &QTextBrowser::backward);
    connect(ui_->Forward, &QToolButton::clicked, view, &QTextBrowser::forward);
    connect(view, &QTextBrowser::backwardAvailable, ui_->Back, &QToolButton::setEnabled);
    connect(view, &QTextBrowser::forwardAvailable, ui_->Forward, &QToolButton::setEnabled);
    connect(ui_->Smaller, &QToolButton::clicked, view, [view] { view->Zoom(-1); });
    connect(ui_->Larger, &QToolButton::clicked, view, [view] { view->Zoom(1); });
    connect(view, &QTextBrowser::sourceChanged, this, &FrmGuide::FillContents);
    for (const auto chosen : {&QTreeWidget::itemClicked, &QTreeWidget::itemActivated})
        connect(ui_->Contents, chosen, view, [view](const QTreeWidgetItem* item) {
            view->setSource(item->data(0, Qt::UserRole).toUrl());
        });
    connect(ui_->Text1, &QLineEdit::returnPressed, this, [this] { Find(); });
    connect(ui_->Text1, &QLineEdit::textEdited, this, [this] { ShowFound(true); });
}

void FrmGuide::SetShortcuts()
{
    GuideView* const view = ui_->View;
    const std::pair<QKeySequence, std::function<void()>> keys[] = {
        {Qt::Key_Escape, [this] { close(); }},
        {Qt::ALT | Qt::Key_Left, [view] { view->backward(); }},
        {Qt::ALT | Qt::Key_Right, [view] { view->forward(); }},
        {Qt::CTRL | Qt::Key_Plus, [view] { view->Zoom(1); }},
        {Qt::CTRL | Qt::Key_Equal, [view] { view->Zoom(1); }}, // the same key without Shift
        {Qt::CTRL | Qt::Key_Minus, [view] { view->Zoom(-1); }},
        {Qt::CTRL | Qt::Key_0, [view] { view->ZoomBack(); }},
        {Qt::CTRL | Qt::Key_F,
         [this] {
             ui_->Text1->setFocus();
             ui_->Text1->selectAll();
         }},
    };
    for (const auto& [key, act] : keys)
        connect(new QShortcut(key, this), &QShortcut::activated, this, act);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(Qt::SHIFT | key, ui_->Text1, nullptr, nullptr, Qt::WidgetShortcut),
                &QShortcut::activated, this, [this] { Find(QTextDocument::FindBackward); });
}

/// The chapters of the file that is shown now, with the chapter that was gone to.
void FrmGuide::FillContents(const QUrl& place)
{
    if (ui_->View->File() != contentsOf_) {
        contentsOf_ = ui_->View->File();
        ui_->Contents->clear();
        for (const GuideChapter& chapter : ui_->View->Chapters()) {
            QTreeWidgetItem* const above =
                ui_->Contents->topLevelItem(ui_->Contents->topLevelItemCount() - 1);
            auto* const item = chapter.level == 3 && above != nullptr ? new QTreeWidgetItem(above)
                                                                      : new QTreeWidgetItem(ui_->Contents);
            item->setText(0, chapter.title);
            item->setSizeHint(0, {fontMetrics().horizontalAdvance(chapter.title) + kTitleRoom,
                                  fontMetrics().lineSpacing() * 3 / 2});
            item->setData(0, Qt::UserRole, chapter.place);
        }
        ui_->Contents->expandAll();
        ui_->Contents->resizeColumnToContents(0);
        const int wanted = std::min(ui_->Contents->columnWidth(0) + kBarRoom, kWidestContents);
        ui_->Splitter->setSizes({wanted, ui_->Splitter->width() - wanted});
    }
    ui_->Contents->setCurrentItem(nullptr);
    for (QTreeWidgetItemIterator item(ui_->Contents); *item != nullptr; ++item)
        if ((*item)->data(0, Qt::UserRole).toUrl() == place)
            ui_->Contents->setCurrentItem(*item);
}

void FrmGuide::Find(QTextDocument::FindFlags direction)
{
    const QString text = ui_->Text1->text();
    ShowFound(text.isEmpty() || ui_->View->Find(text, direction));
}

void FrmGuide::ShowFound(bool found)
{
    ui_->Notice->setText(found ? QString() : Shown(texts_[kGuideNotFoundText]));
    if (found)
        return;
    QAccessibleEvent alert(ui_->Notice, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace quorvane
