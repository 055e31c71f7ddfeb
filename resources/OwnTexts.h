#pragma once

namespace quorvane {

/// Numbers of the program's own texts in the string table.
enum OwnText : int {
    // Why a port cannot be used, and what to do about it.
    kPortAbsentText = 1001,
    kPortBusyText = 1002,
    kPortNoPermissionText = 1003,
    kPortNotALineText = 1004,
    kPortUnsupportedText = 1005,
    kPortOtherText = 1006,
    kPortUsableText = 1007,
    kPortUnnamedText = 1008, ///< %1: the port's number

    // Why a file cannot be read or written, and what to do about it.
    kFileNotFoundText = 1011,
    kFileNoPermissionText = 1012,
    kFileNoSpaceText = 1013,
    kFileInUseText = 1014,
    kFileNotAFileText = 1015,
    kFileOtherText = 1016,

    // What the command line tells of a run.
    kAlarmTwaText = 1021,
    kAlarmStelText = 1022,
    kAlarmCeilingText = 1023,
    kSavedText = 1024,
    kPortLostText = 1025,
    kGivenUpText = 1027, ///< %1: seconds of silence
    kAlarmExcursionText = 1028,
    kRescuedText = 1029, ///< %1: a file's path
    kNotRescuedText = 1030,
    kNothingTakenText = 1031, ///< %1: a file's path

    // Buttons of message boxes, and the save dialog.
    kYesText = 1041,
    kNoText = 1042,
    kSaveAsText = 1043,
    kLookInText = 1044,
    kFileNameText = 1045,
    kFilesOfTypeText = 1046,
    kSaveText = 1047,
    kReplaceFileText = 1048, ///< %1: a file's name
};

} // namespace quorvane
