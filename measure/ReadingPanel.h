#pragma once

#include "measure/MeasurementArrays.h"

#include <string_view>

class QFont;
class QLabel;

namespace quorvane {

/// The values of the newest reading in figures that can be read from across the bench.
class ReadingPanel final {
public:
    struct Labels {
        QLabel* count;
        QLabel* conc;
        QLabel* twa;
        QLabel* stel;
    };
    explicit ReadingPanel(const Labels& labels);

    /// @param font  of the window
    void SetFonts(const QFont& font);
    /// @param sample  from 1; 0: no reading. What is not there is shown as a dash.
    void Show(const MeasurementArrays& arrays, int sample, std::string_view decimalSign);
    /// Greys the values, for they are old.
    void SetStale(bool stale);

private:
    Labels labels_;
};

} // namespace quorvane
