# Sourced by the other scripts: a simulated instrument to measure from, and settings for the desktop program.
# shellcheck shell=bash

# start_instrument PROGRAM LINK LOG [OPTION...]
# Serves on the device LINK until `stop_instrument`. Fails when it never appears.
instrument=
start_instrument() {
    local program=$1 link=$2 log=$3
    shift 3
    "$program" --link "$link" "$@" >"$log" 2>&1 &
    instrument=$!
    for _ in $(seq 300); do
        [ -e "$link" ] && return 0
        kill -0 "$instrument" 2>/dev/null || break
        sleep 0.1
    done
    cat "$log" >&2
    return 1
}

stop_instrument() {
    [ -n "$instrument" ] || return 0
    kill "$instrument" 2>/dev/null || true
    wait "$instrument" 2>/dev/null || true
    instrument=
}

# write_settings FOLDER DATA_FOLDER SAMPLES HOURS MINUTES SECONDS TWA STEL CEILING
# A complete Quorvane.ini in FOLDER: readings come from the instrument on COM1, so many in so much time, with
# these limits in mg/m3; the rest are the program's defaults.
write_settings() {
    local folder=$1 data_folder=$2 samples=$3 hours=$4 minutes=$5 seconds=$6 twa=$7 stel=$8 ceiling=$9
    local version blank=' '
    version=$(sed -n 's/^project(quorvane VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
    sed 's/$/\r/' >"$folder/Quorvane.ini" <<END
[Quorvane Software Version]
Quorvane_Ver.${version//./}0

[Computer Setting]
ProgMode= True
DefaultFolder=$data_folder

[Com Port]
RsPort_CH1=COM1
RsSpeed_CH1=38400
RsDataBit_CH1=8
RsParity_CH1=N
RsStopBit_CH1=1
RsFlow_CH1= 3
$blank
[Quorvane Setting]
DustMeasureNumber= 100
DustMeasureTime_Hour= 0
DustMeasureTime_Minute= 1
DustMeasureTime_Second= 0
DustMeasureStartDate=$(date +%Y/%m/%d)
DustMeasureStartTime=00:00:00
DustMeasureTotalTime_Hour= 0
DustMeasureTotalTime_Minute= 100
DustMeasureTotalTime_Second= 0
QuorvaneKFactor= 0.0013
$blank
[Measure]
MeasureNumber= $samples
MeasureTime_Hour= 0
MeasureTime_Minute= 1
TotalMeasureTime_Hour= $hours
TotalMeasureTime_Minute= $minutes
TotalMeasureTime_Second= $seconds
BarGraphViewFlg= 0
$blank
[Alarm]
TWA_Alarm= $twa
STEL_Alarm= $stel
C_Alarm= $ceiling
$blank
[Graph Setting]
RelativeCFlg= False
RelativeIntegratedFlg= False
MassCFlg= True
MassIntegratedFlg= True
MassTWAFlg= True
MassSTELFlg= True
AlarmCFlg= True
AlarmTWAFlg= True
AlarmSTELFlg= True
END
}
