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
    kPortLostText = 1025, ///< first %1: time of day, second: the port
    kGivenUpText = 1027,  ///< %1: seconds of silence
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

    // The main window: menus and buttons.
    kFileMenuText = 1061,
    kMeasureMenuText = 1062,
    kSaveCommandText = 1063,
    kExitCommandText = 1064,
    kAlarmResetText = 1065,
    kStartTipText = 1066,
    kAlarmResetTipText = 1067,
    kLimitTipText = 1068,

    // The main window: values, lamps and table.
    kTimeColumnText = 1071,
    kCountColumnText = 1072,
    kConcColumnText = 1073,
    kTwaColumnText = 1074,
    kStelColumnText = 1075,
    kIntegratedCountColumnText = 1076,
    kIntegratedConcColumnText = 1077,
    kLampLitText = 1078,
    kLampUnlitText = 1079,
    kTableText = 1080,
    kCopyCommandText = 1081,
    kTwaMeaningText = 1082,
    kStelMeaningText = 1083,
    kConcMeaningText = 1084,
    kCountMeaningText = 1085,

    // The main window: what goes on.
    kSimulatedNoticeText = 1091,
    kReadyText = 1092,
    kConnectingText = 1093,
    kMeasuringText = 1094,
    kStoppingText = 1095,
    kClosingText = 1096,
    kInstrumentModeText = 1097,
    kSimulatedModeText = 1098,
    kSampleText = 1099,      ///< %1: readings taken; a second %1: readings in all
    kTimeLeftText = 1100,    ///< %1: hours, minutes, seconds
    kLinesBehindText = 1101, ///< %1: a number of lines

    // Where the program's own files are, when it is not where they are looked for.
    kFilesInUserFolderText = 1111,     ///< %1: that folder
    kFilesUnwritableText = 1112,       ///< %1: the program's folder
    kNamedFolderUnwritableText = 1113, ///< %1: the folder that QUORVANE_HOME names

    // The chart: legend in the order of the series, axes, notice.
    kLegendRelativeText = 1121,
    kLegendMassText = 1122,
    kLegendTwaText = 1123,
    kLegendStelText = 1124,
    kLegendRelativeIntegratedText = 1125,
    kLegendMassIntegratedText = 1126,
    kRelativeAxisText = 1127,
    kMassAxisText = 1128,
    kChartSimulatedText = 1129,
    kChartText = 1130,

    // Chart on paper, in files, on the clipboard; what its keys do.
    kChartKeysText = 1141,
    kFirstReadingText = 1142,
    kLastReadingText = 1143,
    kReadingCountText = 1144,
    kFactorText = 1145,
    kPreviewText = 1146,
    kNotPrintedText = 1147,
    kPictureNotSavedText = 1148,
    kPortraitText = 1149,
    kLandscapeText = 1150,

    // About the program.
    kAboutTitleText = 1171, ///< %1: the program's name
    kVersionText = 1172,
    kLicenceText = 1173,
    kLibraryText = 1174,
    kProcessorText = 1175,
    kProgramFilesText = 1176,
    kUnknownText = 1177,

    // The measure settings and the graph settings.
    kMeasureNumberTipText = 1178,
    kSecondCountTipText = 1179,
    kSamplingTipText = 1180,
    kHoursText = 1181,
    kMinutesText = 1182,
    kSecondsText = 1183,
    kRelativeGroupText = 1184,
    kMassGroupText = 1185,
    kAlarmGroupText = 1186,
    kGraphHintText = 1187,

    // Opening a data file.
    kOpenTitleText = 1191,
    kOpenText = 1192,
    kNotADataFileText = 1193,
    kDataLineText = 1194,      ///< %1: a line's number
    kDataFewerRowsText = 1195, ///< %1: readings that are there; a second %1: readings announced
    kDataMoreRowsText = 1196,  ///< %1: readings announced
    kDataTooLargeText = 1197,  ///< %1: readings that a file can hold

    // Age of the newest reading, ports that come and go.
    kReadingAgeSecondsText = 1221, ///< %1: seconds
    kReadingAgeText = 1222,        ///< %1: hours, minutes, seconds
    kNoDataText = 1223,
    kPortNotConnectedText = 1224, ///< %1: the port's name

    // The main window: toolbar, further menus, the controls around the chart.
    kToolMenuText = 1241,
    kHelpMenuText = 1242,
    kChartMenuText = 1243,
    kOpenCommandText = 1244,
    kPrintCommandText = 1245,
    kPreviewCommandText = 1246,
    kSaveImageCommandText = 1247,
    kCopyChartCommandText = 1248,
    kMeasureSettingCommandText = 1249,
    kGraphSettingCommandText = 1250,
    kVersionCommandText = 1251,
    kToolOpenText = 1252,
    kToolOpenTipText = 1253,
    kToolSaveText = 1254,
    kToolSaveTipText = 1255,
    kToolPrintText = 1256,
    kToolPrintTipText = 1257,
    kToolHelpText = 1258,
    kToolHelpTipText = 1259,
    kToolbarText = 1260,
    kSpanText = 1261,
    kSpan1Text = 1262,
    kSpan2Text = 1263,
    kSpan3Text = 1264,
    kSpan4Text = 1265,
    kSpanTipText = 1266,
    kWholeRunText = 1267,
    kWholeRunTipText = 1268,
    kZoomTipText = 1269,
    kReadingsText = 1270, ///< %1: a number of readings

    // Files with a measuring program.
    kProgramNotSavedText = 1281,
    kProgramNotLoadedText = 1282,
    kNoProgramInFileText = 1283,
    kProgramFileTooLargeText = 1284,
    kNotAPlainTextText = 1285,

    // The dialog that sets the instrument up.
    kStartDateTipText = 1301,
    kCountTipText = 1302,
    kProgramHoursTipText = 1303,
    kProgramMinutesTipText = 1304,
    kStartHourText = 1305,
    kStartMinuteText = 1306,
    kStartSecondText = 1307,
    kHoursMinutesText = 1308,
    kOpenProgramText = 1309,
    kOpenProgramTipText = 1310,
    kSaveProgramText = 1311,
    kSaveProgramTipText = 1312,
    kSendProgramTipText = 1313,
    kSendClockTipText = 1314,
    kRefreshTipText = 1315,
    kSendKFactorTipText = 1316,
    kKFactorRangeText = 1317,
    kKFactorNoteText = 1318,
    kExchangeText = 1319,
    kLinkSimulatedText = 1320,
    kLinkOpenText = 1321,   ///< %1: a port's name
    kLinkClosedText = 1322, ///< %1: a port's name
    kClockRequestTipText = 1323,
    kArrowTipText = 1324,
    kInstrumentSettingCommandText = 1325,
    kDateLeftOutText = 1326,

    // Setting the instrument up on the command line.
    kInstrumentAnswersText = 1341,
    kCancelledText = 1342,
    kNothingSentText = 1343,
    kDateNotSentText = 1344, ///< %1: the short date pattern of the user's system

    // The main window: what leads to ports, options and the guide.
    kOptionCommandText = 1371,
    kPortSettingCommandText = 1372,
    kGuideCommandText = 1373,

    // The dialog for the port and its line settings.
    kPortGroupText = 1381, ///< %1: a group of users; a second %1: the same
    kChannel1Text = 1382,
    kEvenText = 1383,
    kOddText = 1384,
    kNoneText = 1385,
    kXonXoffText = 1386,
    kRtsCtsText = 1387,
    kXonRtsText = 1388,
    kSearchAgainText = 1389,
    kSearchAgainTipText = 1390,
    kPortNotesText = 1391,
    kSerialNumberText = 1392, ///< %1: a device's serial number
    kNoPortChosenText = 1393,
    kForcedLineText = 1394,

    // The folder chooser.
    kDriveText = 1411,
    kFoldersText = 1412,
    kChosenFolderText = 1413,
    kFolderTreeText = 1414,
    kNewFolderText = 1415,
    kNewFolderNameText = 1416,
    kFolderNotMadeText = 1417,
    kFolderNameRefusedText = 1418,
    kHomeFolderText = 1419,
    kWholeComputerText = 1420,

    // The options and the language selection.
    kOptionTitleText = 1421,
    kDataFolderText = 1422,
    kDataFolderTipText = 1423,
    kBrowseText = 1424,
    kRunModeText = 1425,
    kInstrumentChoiceText = 1426,
    kSimulatedChoiceText = 1427,
    kLanguageText = 1428,
    kSystemLanguageText = 1429, ///< %1: the language that the system's own one gives
    kLanguageHintText = 1430,
    kFolderMissingText = 1431,
    kFolderThisSessionText = 1432,
    kLanguageNextStartText = 1433,
    kLanguageNotSavedText = 1434,
    kJapaneseOnlyText = 1435,
    kWhichIsEnglishText = 1436, ///< in both languages in either

    // About the program: further facts, what can be done with them.
    kProcessorTypeText = 1441,
    kProcessorMakerText = 1442,
    kProcessorClockText = 1443,
    kClockNowText = 1444,       ///< %1: MHz
    kClockAtMostText = 1445,    ///< %1: MHz
    kClockNowAtMostText = 1446, ///< %1: MHz; a second %1: MHz at most
    kL2CacheText = 1447,
    kKilobytesText = 1448, ///< %1: KB
    kSystemText = 1449,
    kSystemClassText = 1450,
    kSystemLanguageNameText = 1451,
    kOpenFolderText = 1452,
    kCopyDetailsText = 1453,
    kCopiedText = 1454,
    kFolderNotOpenedText = 1455,

    // The window with the guide.
    kGuideTitleText = 1456,
    kGuideBackText = 1457,    ///< %1: its keys
    kGuideForwardText = 1458, ///< %1: its keys
    kGuideChaptersText = 1459,
    kGuideFindText = 1460,
    kGuideFindTipText = 1461,
    kGuideNotFoundText = 1462,
    kGuideSmallerText = 1463,
    kGuideLargerText = 1464,
    kGuideSmallerTipText = 1465, ///< %1: its keys
    kGuideLargerTipText = 1466,  ///< %1: its keys

    // The main window: units of the large figures.
    kConcUnitText = 1471,
    kCountUnitText = 1472,

    // About the program: the system has not answered yet.
    kProcessorAwaitedText = 1491,

    // Printing.
    kPrintTitleText = 1492,
    kPrinterText = 1493,
    kPrintToFileText = 1494,
    kPaperText = 1495,
    kCopiesText = 1496,
    kOrientationText = 1497,
    kPrintButtonText = 1498,
    kPrinterReadyText = 1499,
    kPrinterBusyText = 1500,
    kPrinterFaultText = 1501,
    kPrintToFileHintText = 1502,
    kNoPrinterText = 1503,

    // The journal of a run on the command line, and what can be had from one.
    kJournalFaultText = 1511, ///< %1: why
    kJournalBehindText = 1512,
    kJournalGoodText = 1513,
    kLeftOverRunText = 1514, ///< %1: the journal
    kNothingLeftText = 1515,
    kNoJournalText = 1516,    ///< %1: the file
    kNewerJournalText = 1517, ///< %1: the file
    kRunFactsText = 1518,     ///< five %1: readings, start, newest reading, damaged records, gaps
    kRunGivenUpText = 1519,   ///< %1: the journal
    // A device that went during a run.
    kPortBackText = 1521, ///< %1: time of day

    // The offer of readings that an earlier program has left.
    kRecoveryTitleText = 1531,
    kRecoveryText = 1532,
    kRunStartText = 1533,
    kGapsText = 1536,
    kDamagedCountText = 1537,
    kRestoreText = 1538,
    kSaveRecoveredText = 1539,
    kDiscardText = 1540,
    kLaterText = 1541,
    kDiscardQuestionText = 1542,

    // Gaps between readings; the journal's warning.
    kPortLostGapText = 1543,
    kStandstillGapText = 1544,
    kClockSetGapText = 1545,
    kGapTimesText = 1546,   ///< %1: from; a second %1: to; a third %1: how long
    kClockTimesText = 1547, ///< %1: what the clock showed before; a second %1: and after
    kDiskFullWarningText = 1548,
    kJournalWarningText = 1549,
    kDiskSlowWarningText = 1550,

    // Before a run: advice.
    kStartAnywayText = 1551,
    kJournalUnwritableText = 1552, ///< a folder follows, as in the next two
    kDataFolderUnwritableText = 1553,
    kLittleSpaceText = 1554, ///< %1: MB
};

} // namespace quorvane
