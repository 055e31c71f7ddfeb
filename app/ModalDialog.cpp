#include "app/ModalDialog.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace quorvane {

bool RunModally(const QPointer<QDialog>& dialog)
{
    dialog->setModal(true);
    dialog->exec();
    while (dialog && dialog->isVisible())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return !dialog.isNull();
}

void ShowModally(QDialog& dialog)
{
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.setModal(true);
    dialog.show();
}

} // namespace quorvane
