#pragma once

namespace quorvane {

/// Numbers, in the string table, of the texts that every version of the program has; those of this one are
/// in `OwnText`.
enum SystemText : int {
    kProgramNameText = 101,
    kOkText = 128,
    kCancelText = 129,
    kMeasureNumberText = 154,
    kSamplingTimeText = 156,
    kInstrumentSettingText = 161,
    kCloseText = 162,
    kHoursColonText = 167,
    kBehindSecondsText = 168,
    kAlreadyRunningText = 188,
    kRelativeText = 197,
    kRelativeIntegratedText = 199,
    kSecondsUnitText = 216,
    kPortNotUsedText = 217, ///< stands behind the port's name
    kLineErrorText = 218,
    kAllFilesText = 219,
    kOutOfRangeText = 220, ///< followed by the range in parentheses
    kMeasureSettingText = 222,
    kMeasureStartText = 223,
    kMeasureEndText = 225,
    kZoomOnText = 226,
    kZoomOffText = 227,
    kUnsavedText = 228,
    kNoReadingsText = 234,
    kNotSavedText = 235,
    kNotLoadedText = 236,
    kAfternoonText = 247,
    kAfternoonAgainText = 249,
    kLongTableText = 258,
    kTotalTimeText = 260,
    kBadDateText = 264,
    kBadTimeText = 265,
    kMassCeilingText = 272,
    kColonText = 273,
    kTwaNameText = 280,
    kStelNameText = 281,
    kCeilingNameText = 282,
    kMassTwaText = 285,
    kMassStelText = 286,
    kMassText = 289,
    kIntegratedText = 290,
    kMassUnitText = 292,
    kCeilingLimitText = 294,
    kStelLimitText = 295,
    kTwaLimitText = 296,
    kGraphSettingText = 297,
    kNoGraphText = 300,
};

} // namespace quorvane
