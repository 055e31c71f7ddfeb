#include "resources/StringTable.h"

#include "resources/OwnTexts.h"

#include <algorithm>
#include <functional>

namespace quorvane {
namespace {

constexpr int kEnglishAgain = 10000;
constexpr std::string_view kValueMark = "%1";

struct Entry {
    int id;
    std::string_view english;
    std::string_view japanese;
};

constexpr Entry kEntries[] = {
    {101, "Quorvane Software", "Quorvane Software"},
    {128, "OK", "OK"},
    {129, "Cancel", "キャンセル"},
    {147, "CALCULATION Setting", "測定プログラム設定"},
    {154, "Number of Measuring Times:", "測定回数:"},
    {156, "Sampling Time:", "サンプリング時間:"},
    {157, "Start Time:", "開始時刻:"},
    {159, "Send", "送信"},
    {161, "Instrument Setting", "測定器設定"},
    {162, "Close", "閉じる"},
    {166, ":", ":"},
    {167, ":", ":"},
    {168, "  ", "  "},
    {169, "Instrument Clock", "測定器の時計"},
    {170, "System Date", "パソコンの日付"},
    {171, "System Time", "パソコンの時刻"},
    {172, "Instrument Date", "測定器の日付"},
    {173, "Instrument Time", "測定器の時刻"},
    {174, ">>", ">>"},
    {175, "Send", "送信"},
    {176, "Refresh", "更新"},
    {177, "K-Factor Setting", "K ファクター設定"},
    {178, "Mass concentration conversion coefficient(K-Factor):", "質量濃度変換係数（K ファクター）:"},
    {179, "Send", "送信"},
    {188, "Two or more startings cannot do this application.",
     "このアプリケーションは二重に起動できません。"},
    {189, "Please uses Windows 2000 or Windows XP.", "Windows 2000 または Windows XP をご使用ください。"},
    {197, "Relative Concentration[CPM]", "相対濃度 [CPM]"},
    {199, "Relative Concentration(Integrated value)[CPM]", "相対濃度（積算値）[CPM]"},
    {215, "Start Date", "開始日"},
    {216, "sec", "秒"},
    {217, " is not used.", "は使用できません。"}, // stands behind the port's name
    {218, "RS232C ERROR.", "RS-232C 通信エラーが発生しました。"},
    {219, "All Files", "すべてのファイル"},
    {220, "It is over the setting range. Redo setup.", "設定範囲を超えています。設定し直してください。"},
    {221, "The setup is incorrect. Redo setup.", "設定が正しくありません。設定し直してください。"},
    {222, "Measure setting", "測定設定"},
    {223, "Measure Start", "測定開始"},
    {225, "Measure End", "測定終了"},
    {226, "Zoom On", "ズームオン"},
    {227, "Zoom Off", "ズームオフ"},
    {228, "Data is not saved. Do you save?", "データが保存されていません。保存しますか？"},
    {234, "Number of Data is zero. Redo setup.", "データ数が 0 です。設定し直してください。"},
    {235, "Data File can not create or save.", "データファイルを作成または保存できません。"},
    {236, "Data File can not load.", "データファイルを読み込めません。"},
    {238, "Communication Error", "通信エラー"},
    {247, "PM", "午後"}, // what a 12-hour clock writes in the afternoon, in either language
    {249, "PM", "PM"},
    {257, "Number of Measure:", "測定回数:"},
    {258, "More than 10000 readings make a long table. Go on?",
     "測定回数が 10000 回を超えると、表が長くなります。続行しますか？"},
    {260, "Total Measure Time:", "総測定時間:"},
    {263, "It completed.", "完了しました。"},
    {264, "There is a problem in the date data. Graphical representation is not possible.",
     "日付データに異常があります。グラフを表示できません。"},
    {265, "There is a problem in the time data. Graphical representation is not possible.",
     "時刻データに異常があります。グラフを表示できません。"},
    {270, "Start date is invalid.", "開始日が正しくありません。"},
    {271, "Start time is invalid.", "開始時刻が正しくありません。"},
    {272, "Mass Concentration(C) [mg/m3]", "質量濃度（C）[mg/m3]"},
    {273, ":", ":"},
    {280, "TLV-TWA:", "TLV-TWA:"},
    {281, "TLV-STEL:", "TLV-STEL:"},
    {282, "TLV-C:", "TLV-C:"},
    {285, "Mass Concentration(TWA) [mg/m3]", "質量濃度（TWA）[mg/m3]"},
    {286, "Mass Concentration(STEL) [mg/m3]", "質量濃度（STEL）[mg/m3]"},
    {289, "Mass Concentration", "質量濃度"},
    {290, "(Integrated value)", "（積算値）"},
    {292, "[mg/m3]", "[mg/m3]"},
    {294, "Alarm value (C) [mg/m3]", "警報値（C）[mg/m3]"},
    {295, "Alarm value (STEL) [mg/m3]", "警報値（STEL）[mg/m3]"},
    {296, "Alarm value (TWA) [mg/m3]", "警報値（TWA）[mg/m3]"},
    {297, "Graph Setting", "グラフ設定"},
    {300, "The graph to display is not selected. Please select it.",
     "表示するグラフが選択されていません。選択してください。"},

    {kPortAbsentText, "There is no such port. Connect the instrument or its adapter, or choose another port.",
     "ポートが見つかりません。測定器または変換アダプターを接続するか、別のポートを選択してください。"},
    {kPortBusyText, "Another program is using the port. Close it and try again.",
     "ほかのプログラムがポートを使用しています。そのプログラムを終了してから、もう一度お試しください。"},
    {kPortNoPermissionText,
     "Your account is not allowed to use serial ports. On Linux, add it to the group that owns the device "
     "(often "
     "dialout) "
     "and log in again.",
     "お使いのアカウントにはシリアルポートを使用する権限がありません。Linux では、デバイスを所有するグループ"
     "（多くの場合 dialout）にアカウントを追加し、ログインし直してください。"},
    {kPortNotALineText, "The device does not answer as a serial line. Choose another port.",
     "このデバイスはシリアルポートとして応答しません。別のポートを選択してください。"},
    {kPortUnsupportedText,
     "The port cannot work with these line settings. Change the speed, data bits, parity, stop bits or flow "
     "control in the communication settings.",
     "ポートが現在の通信設定に対応していません。通信設定のボーレート、データビット、パリティ、"
     "ストップビット、フロー制御を変更してください。"},
    {kPortOtherText, "The port could not be opened. Check the cable and the adapter and try again.",
     "ポートを開けませんでした。ケーブルと変換アダプターを確認し、もう一度お試しください。"},
    {kPortUsableText, "can be used", "使用できます"},
    {kPortUnnamedText, "No device; the environment variable QUORVANE_COM%1 can name one.",
     "デバイスの割り当てがありません。環境変数 QUORVANE_COM%1 で指定できます。"},

    {kFileNotFoundText, "The folder or the file does not exist. Choose another place.",
     "フォルダーまたはファイルが見つかりません。別の場所を選択してください。"},
    {kFileNoPermissionText, "Your account is not allowed to use this file or folder. Choose another place.",
     "お使いのアカウントには、このファイルまたはフォルダーへのアクセス権限がありません。"
     "別の場所を選択してください。"},
    {kFileNoSpaceText, "There is no space left. Make room there or choose another place.",
     "空き容量が不足しています。空き容量を増やすか、別の場所を選択してください。"},
    {kFileInUseText, "Another program is using the file. Close it there and try again.",
     "ほかのプログラムがファイルを使用しています。そのプログラムでファイルを閉じてから、"
     "もう一度お試しください。"},
    {kFileNotAFileText, "This is the name of a folder or a device. Choose another file name.",
     "フォルダーまたはデバイスの名前が指定されています。別のファイル名を指定してください。"},
    {kFileOtherText, "The file could not be read or written. Try again or choose another place.",
     "ファイルの読み書きに失敗しました。もう一度お試しいただくか、別の場所を選択してください。"},

    {kAlarmTwaText, "Alarm TLV-TWA", "TLV-TWA 警報"},
    {kAlarmStelText, "Alarm TLV-STEL", "TLV-STEL 警報"},
    {kAlarmCeilingText, "Alarm TLV-C", "TLV-C 警報"},
    {kSavedText, "Saved", "保存しました"},
    {kPortLostText, "Port lost; waiting for the instrument",
     "ポートとの接続が失われました。測定器の再接続を待っています。"},
    {kGivenUpText, "No data from the instrument for %1 s; the run was given up",
     "測定器から %1 秒間データが届かなかったため、測定を打ち切りました。"},
    {kAlarmExcursionText, "Alarm TLV-STEL (too many or too close excursions above TLV-TWA)",
     "TLV-STEL 警報（TLV-TWA の超過回数が多すぎるか、超過の間隔が短すぎます）"},
    {kRescuedText, "The readings were saved here instead: %1",
     "代わりに、測定データを次の場所に保存しました: %1"},
    {kNotRescuedText, "The readings could not be saved anywhere.",
     "測定データはどこにも保存できませんでした。"},
    {kNothingTakenText, "No reading was taken; %1 was left as it is.",
     "測定データがないため、%1 は変更していません。"},

    {kYesText, "&Yes", "はい(&Y)"},
    {kNoText, "&No", "いいえ(&N)"},
    {kSaveAsText, "Save as", "名前を付けて保存"},
    {kLookInText, "Look in:", "場所:"},
    {kFileNameText, "File &name:", "ファイル名(&N):"},
    {kFilesOfTypeText, "Files of type:", "ファイルの種類:"},
    {kSaveText, "&Save", "保存(&S)"},
    {kReplaceFileText, "%1 already exists. Replace it?", "%1 は既に存在します。上書きしますか？"},

    {kFileMenuText, "&File", "ファイル(&F)"},
    {kMeasureMenuText, "&Measure", "測定(&M)"},
    {kSaveCommandText, "&Save...", "保存(&S)..."},
    {kExitCommandText, "E&xit", "終了(&X)"},
    {kAlarmResetText, "Alarm Reset", "警報リセット"},
    {kStartTipText, "Starts a measurement (F5), and stops it (Shift+F5)",
     "測定を開始（F5）または終了（Shift+F5）します"},
    {kAlarmResetTipText, "Turns the alarm lamps off and begins a new eight-hour span (F8)",
     "警報ランプを消し、8 時間の監視を新たに開始します（F8）"},
    {kLimitTipText, "0.001 to 10 mg/m3; cannot be changed during a measurement",
     "0.001～10 mg/m3（測定中は変更できません）"},

    {kTimeColumnText, "Time", "時刻"},
    {kCountColumnText, "Relative [CPM]", "相対濃度 [CPM]"},
    {kConcColumnText, "Mass [mg/m3]", "質量濃度 [mg/m3]"},
    {kTwaColumnText, "TWA [mg/m3]", "TWA [mg/m3]"},
    {kStelColumnText, "STEL [mg/m3]", "STEL [mg/m3]"},
    {kIntegratedCountColumnText, "Relative, integrated [CPM]", "相対濃度積算値 [CPM]"},
    {kIntegratedConcColumnText, "Mass, integrated [mg/m3]", "質量濃度積算値 [mg/m3]"},
    {kLampLitText, "ALARM", "警報"},
    {kLampUnlitText, "No alarm", "警報なし"},
    {kTableText, "Readings", "測定値"},
    {kCopyCommandText, "&Copy", "コピー(&C)"},
    {kTwaMeaningText, "average since the start", "測定開始からの平均"},
    {kStelMeaningText, "average of the last 15 minutes", "直近 15 分間の平均"},
    {kConcMeaningText, "mass concentration now", "現在の質量濃度"},
    {kCountMeaningText, "relative concentration now", "現在の相対濃度"},

    {kSimulatedNoticeText, "SIMULATED: these readings are made up by the computer, not measured.",
     "シミュレーションモード: 表示される値はコンピューターが生成したもので、実際の測定値ではありません。"},
    {kReadyText, "Ready", "待機中"},
    {kConnectingText, "Connecting to the instrument...", "測定器に接続しています..."},
    {kMeasuringText, "Measuring", "測定中"},
    {kStoppingText, "Stopping...", "測定を終了しています..."},
    {kClosingText, "The window closes when the measurement has ended.",
     "測定が終了したあと、ウィンドウを閉じます。"},
    {kInstrumentModeText, "Instrument", "測定器"},
    {kSimulatedModeText, "SIMULATED", "シミュレーション"},
    {kSampleText, "Sample %1 of %1", "測定回数 %1 / %1"},
    {kTimeLeftText, "Time left %1", "残り時間 %1"},
    {kLinesBehindText, "%1 lines waiting", "未処理 %1 行"},

    {kFilesInUserFolderText, "The program's folder cannot be written. Settings and error log are in %1.",
     "プログラムのフォルダーに書き込めません。設定とエラーログの保存先: %1"},
    {kFilesUnwritableText,
     "Nothing can be written in the program's folder %1 or in your own data folder. Settings will not be "
     "kept.",
     "プログラムのフォルダー %1 にもユーザーのデータフォルダーにも書き込めません。設定は保存されません。"},
    {kNamedFolderUnwritableText,
     "Nothing can be written in %1, the folder that QUORVANE_HOME names. Settings will not be kept.",
     "QUORVANE_HOME で指定されたフォルダー %1 に書き込めません。設定は保存されません。"},

    {kLegendRelativeText, "Relative Concentration(Instantaneous value)", "相対濃度（瞬時値）"},
    {kLegendMassText, "Mass Concentration(C)", "質量濃度（C）"},
    {kLegendTwaText, "Mass Concentration(TWA)", "質量濃度（TWA）"},
    {kLegendStelText, "Mass Concentration(STEL)", "質量濃度（STEL）"},
    {kLegendRelativeIntegratedText, "Relative Concentration(Integrated value)", "相対濃度（積算値）"},
    {kLegendMassIntegratedText, "Mass Concentration(Integrated value)", "質量濃度（積算値）"},
    {kRelativeAxisText, "Dust[CPM]", "粉じん[CPM]"},
    {kMassAxisText, "Mass density[mg/m3]", "質量濃度[mg/m3]"},
    {kChartSimulatedText, "SIMULATED VALUES, NOT MEASURED", "シミュレーション値（実測値ではありません）"},
    {kChartText, "Chart", "グラフ"},

    {kChartKeysText,
     "While zoom is on: drag, turn the wheel or press + and - to zoom, Left and Right to scroll.",
     "ズームオン中は、ドラッグ、ホイールまたは + と - "
     "のキーで拡大・縮小し、左右の矢印キーでスクロールします。"},
    {kFirstReadingText, "First reading", "最初の測定"},
    {kLastReadingText, "Last reading", "最後の測定"},
    {kReadingCountText, "Number of readings", "データ数"},
    {kFactorText, "Factor [mg/m3 per CPM]", "換算係数 [mg/m3/CPM]"},
    {kPreviewText, "Print preview", "印刷プレビュー"},
    {kNotPrintedText, "The chart could not be printed. Check the printer and try again.",
     "グラフを印刷できませんでした。プリンターを確認し、もう一度お試しください。"},
    {kPictureNotSavedText, "The picture of the chart could not be saved.",
     "グラフの画像を保存できませんでした。"},
    {kPortraitText, "&Upright", "縦(&U)"},
    {kLandscapeText, "&Across", "横(&A)"},

    {kAboutTitleText, "About %1", "%1 について"},
    {kVersionText, "Version %1", "バージョン %1"},
    {kLicenceText,
     "Free software under the GNU General Public License, version 3 or later (GPL-3.0-or-later)",
     "GNU General Public License バージョン 3 以降（GPL-3.0-or-later）のフリーソフトウェアです。"},
    {kToolkitText, "Toolkit:", "ツールキット:"},
    {kProcessorText, "Processor:", "プロセッサー:"},
    {kProgramFilesText, "Program files:", "プログラムのファイル:"},
    {kUnknownText, "unknown", "不明"},

    {kMeasureNumberTipText, "1 to 65500 measurements", "測定回数: 1～65500 回"},
    {kSecondCountTipText, "Second count, 1 to 99; not part of the total measure time",
     "第 2 の回数: 1～99（総測定時間には含まれません）"},
    {kSamplingTipText, "1 to 900 seconds for one measurement", "1 回の測定につき 1～900 秒"},
    {kHoursText, "Hours of the total measure time", "総測定時間の時間数"},
    {kMinutesText, "Minutes of the total measure time", "総測定時間の分"},
    {kSecondsText, "Seconds of the total measure time", "総測定時間の秒"},
    {kRelativeGroupText, "Relative concentration", "相対濃度"},
    {kMassGroupText, "Mass concentration", "質量濃度"},
    {kAlarmGroupText, "Alarm lines (choose with mass concentration)", "警報線（質量濃度の選択時に設定）"},
    {kGraphHintText,
     "Relative and mass concentration cannot be shown together. To change over, clear all boxes of the one "
     "in "
     "use first.",
     "相対濃度と質量濃度を同時に表示することはできません。切り替えるには、選択中の側のチェックをすべて外して"
     "ください。"},

    {kOpenTitleText, "Open", "開く"},
    {kOpenText, "&Open", "開く(&O)"},
    {kNotADataFileText, "This is not a data file of this program.",
     "このプログラムのデータファイルではありません。"},
    {kDataLineText, "Line %1 of the file cannot be read.", "ファイルの %1 行目を読み取れません。"},
    {kDataFewerRowsText, "The file is not complete: it ends after reading %1 of %1.",
     "ファイルが途中で終わっています (測定回数 %1 / %1)。"},
    {kDataMoreRowsText, "The file holds more than the %1 readings that it announces.",
     "ファイルに記載された測定回数 %1 を超えるデータがあります。"},
    {kDataTooLargeText, "The file is too large. A data file holds %1 readings at most.",
     "ファイルが大きすぎます。データファイルの測定回数は最大 %1 です。"},

    {kReadingAgeSecondsText, "Last reading %1 s ago", "最終測定から %1 秒"},
    {kReadingAgeText, "Last reading %1 ago", "最終測定から %1"},
    {kNoDataText, "No data from the instrument", "測定器からデータが届いていません"},
    {kPortNotConnectedText, "%1 (not connected)", "%1（未接続）"},

    {kToolMenuText, "&Tool", "ツール(&T)"},
    {kHelpMenuText, "&Help", "ヘルプ(&H)"},
    {kChartMenuText, "&Chart", "グラフ(&C)"},
    {kOpenCommandText, "&Open...", "開く(&O)..."},
    {kPrintCommandText, "&Print...", "印刷(&P)..."},
    {kPreviewCommandText, "Print Pre&view...", "印刷プレビュー(&V)..."},
    {kSaveImageCommandText, "Save chart as &image...", "グラフを画像として保存(&I)..."},
    {kCopyChartCommandText, "&Copy chart", "グラフをコピー(&C)"},
    {kMeasureSettingCommandText, "&Measure Setting...", "測定条件設定(&M)..."},
    {kGraphSettingCommandText, "&Graph Setting", "グラフ設定(&G)"},
    {kVersionCommandText, "&Version...", "バージョン情報(&V)..."},
    {kToolOpenText, "Open", "開く"},
    {kToolOpenTipText, "Opens a data file (Ctrl+O)", "データファイルを開きます（Ctrl+O）"},
    {kToolSaveText, "Save", "保存"},
    {kToolSaveTipText, "Saves the readings as a data file (Ctrl+S)",
     "測定データをファイルに保存します（Ctrl+S）"},
    {kToolPrintText, "Print", "印刷"},
    {kToolPrintTipText, "Prints the chart (Ctrl+P)", "グラフを印刷します（Ctrl+P）"},
    {kToolHelpText, "Help", "ヘルプ"},
    {kToolHelpTipText, "Tells about this program", "このプログラムの情報を表示します"},
    {kToolbarText, "Toolbar", "ツールバー"},
    {kSpanText, "Time span:", "表示時間:"},
    {kSpan1Text, "1 min", "1 分"},
    {kSpan2Text, "10 min", "10 分"},
    {kSpan3Text, "1 h", "1 時間"},
    {kSpan4Text, "5 h", "5 時間"},
    {kSpanTipText, "How much time the chart shows at once (Ctrl+1 to Ctrl+4)",
     "グラフに一度に表示する時間（Ctrl+1～Ctrl+4）"},
    {kWholeRunText, "Whole Run", "全体表示"},
    {kWholeRunTipText, "Shows the run from its first reading to its last (F7)",
     "最初から最後までの測定データを表示します（F7）"},
    {kZoomTipText, "While zoom is on, drag in the chart or turn the mouse wheel to enlarge (F6)",
     "ズームオンの間、グラフ上でドラッグするかホイールを回すと拡大できます（F6）"},
    {kReadingsText, "%1 readings", "測定データ %1 件"},

    {kProgramNotSavedText, "The measuring program could not be saved.",
     "測定プログラムを保存できませんでした。"},
    {kProgramNotLoadedText, "The measuring program could not be loaded.",
     "測定プログラムを読み込めませんでした。"},
    {kNoProgramInFileText,
     "The file holds no measuring program. Load it all the same? The number of measurements and the hours "
     "become 0, and the start date and time are emptied.",
     "このファイルには測定プログラムがありません。それでも読み込みますか？測定回数と時間は 0 になり、"
     "開始日と開始時刻は消去されます。"},
    {kProgramFileTooLargeText, "The file is too large to hold a measuring program.",
     "ファイルが大きすぎるため、測定プログラムのファイルとして使用できません。"},
    {kNotAPlainTextText, "The file is no plain text. Choose another file name.",
     "プレーンテキストのファイルではありません。別のファイル名を指定してください。"},

    {kStartDateTipText, "Start date, as this computer writes dates", "開始日（このパソコンの日付形式）"},
    {kCountTipText, "Number of measurements, 1 to 30000", "測定回数、1 ～ 30000"},
    {kProgramHoursTipText, "Hours of one measurement, 0 to 99", "1 回の測定時間の時間数、0 ～ 99"},
    {kProgramMinutesTipText, "Minutes of one measurement, 0 to 59", "1 回の測定時間の分、0 ～ 59"},
    {kStartHourText, "Hour of the start time", "開始時刻の時"},
    {kStartMinuteText, "Minute of the start time", "開始時刻の分"},
    {kStartSecondText, "Second of the start time", "開始時刻の秒"},
    {kHoursMinutesText, "(hours : minutes)", "（時間 : 分）"},
    {kOpenProgramText, "&Open...", "開く(&O)..."},
    {kOpenProgramTipText, "Loads a measuring program from a file",
     "測定プログラムをファイルから読み込みます"},
    {kSaveProgramText, "Save &as...", "名前を付けて保存(&A)..."},
    {kSaveProgramTipText, "Keeps the measuring program in a file", "測定プログラムをファイルに保存します"},
    {kSendProgramTipText, "Sends the measuring program to the instrument",
     "測定プログラムを測定器に送信します"},
    {kSendClockTipText, "Sets the instrument's clock from this computer's clock",
     "パソコンの時計に測定器の時計を合わせます"},
    {kRefreshTipText, "Reads both clocks now; they are read every second, too",
     "両方の時計を今すぐ読み取ります（1 秒ごとにも読み取ります）"},
    {kSendKFactorTipText, "Sends the K-factor to the instrument", "K ファクターを測定器に送信します"},
    {kKFactorRangeText, "0.0001 to 0.0099 mg/m3 per CPM", "0.0001 ～ 0.0099 mg/m3/CPM"},
    {kKFactorNoteText, "Only the instrument converts with it; nothing in this program changes with it.",
     "測定器だけが換算に使用します。このプログラムの表示は変わりません。"},
    {kExchangeText, "Waiting for the instrument...", "測定器の応答を待っています..."},
    {kLinkSimulatedText, "SIMULATED: nothing is sent to an instrument.",
     "シミュレーション: 測定器には何も送信されません。"},
    {kLinkOpenText, "%1 is open.", "%1 は接続されています。"},
    {kLinkClosedText, "%1 is not open. Send tries to open it.",
     "%1 は接続されていません。送信時に接続を試みます。"},
    {kClockRequestTipText, "What was sent to set the clock", "時計を合わせるために送信した内容"},
    {kArrowTipText, "From this computer to the instrument", "パソコンから測定器へ"},
    {kInstrumentSettingCommandText, "&Instrument Setting...", "測定器設定(&I)..."},
    {kDateLeftOutText, "No date is sent: write it in 8 to 10 characters.",
     "日付は送信されません（8 ～ 10 文字で入力してください）。"},

    {kInstrumentAnswersText, "The instrument answers.", "測定器は応答しています。"},
    {kCancelledText, "Cancelled.", "中止しました。"},
    {kNothingSentText, "Nothing was sent; with --send it is.",
     "送信していません。送信するには --send を付けてください。"},
    {kDateNotSentText,
     "The instrument cannot get this start date, because the short dates of your system (%1) do not carry "
     "it. Choose a date format with leading zeros and years of four digits.",
     "お使いのシステムの短い日付形式（%1）では、この開始日を測定器に送信できません。"
     "月と日が 2 桁、年が 4 桁の日付形式を選択してください。"},
};

static_assert(std::ranges::adjacent_find(kEntries, std::ranges::greater_equal{}, &Entry::id) ==
                  std::ranges::end(kEntries),
              "the look-up needs rising numbers");

} // namespace

std::string StringTable::Text(int id, int languageOffset) const
{
    const int number = id + languageOffset;
    const bool english = number >= kEnglishAgain || language_ == TableLanguage::English;
    const int key = number >= kEnglishAgain ? number - kEnglishAgain : number;
    const auto* const entry = std::ranges::lower_bound(kEntries, key, {}, &Entry::id);
    if (entry == std::ranges::end(kEntries) || entry->id != key)
        return {};
    return std::string(english ? entry->english : entry->japanese);
}

std::string FilledIn(std::string text, std::string_view value)
{
    if (const std::size_t mark = text.find(kValueMark); mark != std::string::npos)
        text.replace(mark, kValueMark.size(), value);
    return text;
}

} // namespace quorvane
