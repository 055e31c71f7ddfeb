#include "app/ProgramIcon.h"

// The pictures lie in a static library and have to be asked for; the macro works outside a namespace only.
static void LoadPictures()
{
    Q_INIT_RESOURCE(pictures);
}

namespace quorvane {

QIcon ProgramIcon()
{
    LoadPictures();
    QIcon icon;
    for (const char* size : {"16", "32", "48", "256"})
        icon.addFile(QStringLiteral(":/pictures/quorvane-%1.png").arg(QLatin1String(size)));
    return icon;
}

} // namespace quorvane
