#include "graph/PlotVersion.h"

#include "graph/PlotLibrary.h"

namespace quorvane {

std::string PlotLibraryVersion()
{
    return QCUSTOMPLOT_VERSION_STR;
}

} // namespace quorvane
