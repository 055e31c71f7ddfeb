; The installer's own texts; the common ones are NSIS's.

!define SELECT_LANGUAGE_ENGLISH "Select Language"
!define SELECT_LANGUAGE_JAPANESE "言語の選択"

!macro Text name english japanese
  LangString ${name} ${LANG_ENGLISH} "${english}"
  LangString ${name} ${LANG_JAPANESE} "${japanese}"
!macroend

!insertmacro Text SelectLanguage "${SELECT_LANGUAGE_ENGLISH}" "${SELECT_LANGUAGE_JAPANESE}"
!insertmacro Text UsersTitle "For whom" "使用するユーザー"
!insertmacro Text UsersSubtitle "Who is going to use ${PRODUCT} on this computer?" "このコンピューターで ${PRODUCT} を使用するユーザーを選択してください。"
!insertmacro Text OneUser "Only for me" "現在のユーザーのみ"
!insertmacro Text OneUserMore "Needs no administrator. The program and its settings are in the folder of this account." \
  "管理者の権限は不要です。プログラムと設定は、このアカウントのフォルダーに置かれます。"
!insertmacro Text AllUsersText "For all users of this computer" "すべてのユーザー"
!insertmacro Text AllUsersMore "Needs an administrator. Each user has settings of his own, in %LOCALAPPDATA%\Quorvane." \
  "管理者の権限が必要です。設定は、ユーザーごとに %LOCALAPPDATA%\Quorvane に置かれます。"
!insertmacro Text NeedsWindows10 "${PRODUCT} needs Windows 10 or newer." "${PRODUCT} には Windows 10 以降が必要です。"
!insertmacro Text ProgramRuns "${PRODUCT} is running, or its files cannot be written. Close it and try again." \
  "${PRODUCT} が実行中であるか、ファイルに書き込めません。プログラムを終了してから再試行してください。"
!insertmacro Text OldStays "The version that is there could not be removed." "インストール済みのバージョンを削除できませんでした。"
!insertmacro Text WhatStays "${PRODUCT} is removed from the folder below. Measured data, settings and the error log stay where they are." \
  "次のフォルダーから ${PRODUCT} を削除します。測定データ、設定、エラーログはそのまま残ります。"
