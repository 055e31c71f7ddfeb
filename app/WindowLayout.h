#pragma once

#include "files/FileStore.h"

#include <string>

class QHeaderView;
class QMainWindow;
class QSplitter;

namespace quorvane {

/// Size, place and division of the main window from one session to the next. They lie in a file of their own,
/// "QuorvaneWindow.ini" beside the settings: lines "key=value", sizes in pixels, the place of the window as
/// the toolkit describes it, in base 64. What cannot be read, or does not fit this program, is left out; what
/// cannot be written is forgotten.
class WindowLayout {
public:
    struct Controls {
        QMainWindow& window;
        QSplitter& splitter;
        QHeaderView& columns;
    };

    /// @param folder  of the program's own files, UTF-8
    WindowLayout(FileStore& store, const std::string& folder, Controls controls);

    /// Brings the window back to what was kept. @return the chart's span, 1 to 4, or 0 when none was kept
    [[nodiscard]] int Restore();
    void Keep(int span);

private:
    FileStore& store_;
    std::string path_;
    Controls controls_;
};

} // namespace quorvane
