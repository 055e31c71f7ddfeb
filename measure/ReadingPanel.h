#pragma once

#include "measure/MeasurementArrays.h"
#include "measure/ReadingText.h"

#include <QWidget>
#include <array>
#include <string_view>

class QLabel;

namespace quorvane {

/// The values of the newest reading in figures that can be read from across the bench.
class ReadingPanel final {
public:
    struct Field {
        QLabel* label;
        ReadingColumn column;
    };
    static constexpr std::size_t kFields = 4;

    explicit ReadingPanel(const std::array<Field, kFields>& fields);

    void Show(const MeasurementArrays& arrays, int sample, std::string_view decimalSign);
    /// No reading: dashes.
    void Clear();

private:
    std::array<Field, kFields> fields_;
};

} // namespace quorvane
