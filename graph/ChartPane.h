#pragma once

#include "app/ApplicationState.h"
#include "app/LocaleItems.h"
#include "app/Texts.h"
#include "graph/LiveChart.h"
#include "measure/MeasurementArrays.h"

#include <QString>
#include <array>

class QAbstractButton;
class QAction;
class QButtonGroup;
class QLabel;
class QPushButton;
class QWidget;

namespace quorvane {

class ChartWidget;

/// The chart of the main window with the controls around it: the span selector, `Command3` (whole run) and
/// `Command4` (zoom).
class ChartPane final {
public:
    struct Controls {
        ChartWidget* chart;
        QLabel* spanName;
        std::array<QAbstractButton*, 4> spans; ///< for the values 1 to 4
        QPushButton* command3;
        QPushButton* command4;
        QAction* wholeRun; ///< the menu's twins of the two buttons
        QAction* zoom;
    };
    /// @param window  its pointer changes while the chart can be zoomed
    ChartPane(QWidget& window, const Controls& controls, const ApplicationState& state,
              const MeasurementArrays& arrays, const Texts& texts, const LocaleItems& locale);

    void SetCaptions();
    void SetEnabled(bool command3, bool command4);

    // What the chart's rules hear of a run, of opened data and of other settings.
    void PrepareRun();
    void AddReading();
    void Rebuild();
    void ShowData();
    void FlagsEdited(ChartView before);

    [[nodiscard]] int Span() const { return chart_.Span(); }
    void SelectSpan(int number);

private:
    void ShowZoom();
    [[nodiscard]] QString HintAt(ChartTime time) const;

    QWidget& window_;
    Controls controls_;
    QButtonGroup* spans_;
    const ApplicationState& state_;
    const MeasurementArrays& arrays_;
    const Texts& texts_;
    const LocaleItems& locale_;
    LiveChart chart_;
};

} // namespace quorvane
