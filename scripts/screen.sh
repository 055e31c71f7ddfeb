# Sourced by the scripts that drive the desktop program on a virtual display with a mouse and a keyboard. They set
# `scratch`, a folder for passing files, `running`, the program's process while there is one, and `records`, what is
# shown of a run that failed.
# shellcheck shell=bash disable=SC2034,SC2154

title='Quorvane Software'
start_colour='#289541'   # the middle of the triangle on the start button
ceiling_colour='#d81f2a' # the lit lamp's octagon
curve_colour='#008000'   # of the mass concentration in the chart
patience=${patience-30}  # seconds that anything may take
display_server=

# start_display WxH: a virtual display of its own, in DISPLAY.
start_display() {
    Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset 3>"$scratch/display" 2>"$scratch/display.log" &
    display_server=$!
    wait_for "a virtual display" test -s "$scratch/display"
    DISPLAY=:$(cat "$scratch/display")
    export DISPLAY
    width=${1%x*} height=${1#*x}
}

stop_display() {
    [ -n "$display_server" ] || return 0
    kill "$display_server" 2>/dev/null || true
    wait "$display_server" 2>/dev/null || true
}

say() {
    printf '%4d s  %s\n' "$SECONDS" "$1"
}

fail() {
    local name
    name=$(basename "$0")
    echo "$name: $1" >&2
    if [ -n "${DISPLAY-}" ] && take_picture "build/$name-failed.png" 2>/dev/null; then
        echo "The screen at that moment: build/$name-failed.png" >&2
    fi
    local record
    for record in "${records[@]}"; do
        [ -s "$record" ] || continue
        echo "The end of $(basename "$record"):" >&2
        tail -n 20 "$record" >&2
    done
    exit 1
}

program_ended() { ! kill -0 "$running" 2>/dev/null; }

# wait_for WHAT COMMAND...
wait_for() {
    local what=$1 end=$((SECONDS + patience))
    shift
    until "$@"; do
        if [ -n "$running" ] && program_ended && [ "$1" != program_ended ]; then
            fail "the program ended in the wait for $what"
        fi
        [ "$SECONDS" -lt "$end" ] || fail "waited $patience s in vain for $what"
        sleep 0.1
    done
}

take_picture() {
    mkdir -p "$(dirname "$1")"
    import -window root "$1"
}

# shows COLOUR: whether more than a few pixels of the screen have about this colour.
shows() {
    take_picture "$scratch/now.png"
    local pixels
    pixels=$(convert "$scratch/now.png" -alpha off -fuzz 3% -fill black +opaque "$1" -fuzz 0% -fill white +opaque black \
        -format '%[fx:round(mean*w*h)]' info:)
    [ "$pixels" -ge 100 ]
}

# Sets x and y to the middle of the start button's green triangle, the only such green in the window.
find_start_button() {
    take_picture "$scratch/now.png"
    local box
    box=$(convert "$scratch/now.png" -alpha off -fuzz 3% -fill black +opaque "$start_colour" -format '%@' info: 2>/dev/null)
    [[ $box =~ ^([0-9]+)x([0-9]+)\+([0-9]+)\+([0-9]+)$ ]] || return 1
    local width=${BASH_REMATCH[1]} height=${BASH_REMATCH[2]}
    if [ "$width" -lt 4 ] || [ "$width" -gt 40 ] || [ "$height" -lt 4 ] || [ "$height" -gt 40 ]; then
        return 1
    fi
    x=$((BASH_REMATCH[3] + width / 2))
    y=$((BASH_REMATCH[4] + height / 2))
}

# find_new_window [NAME]: sets window to the one window of that name that is not yet known.
known_windows=()
find_new_window() {
    local id
    for id in $(xdotool search --onlyvisible --name "${1-$title}" 2>/dev/null); do
        case " ${known_windows[*]} " in
            *" $id "*) ;;
            *)
                window=$id
                return 0
                ;;
        esac
    done
    return 1
}

# gone WINDOW: whether it is no longer on the screen.
gone() {
    ! xdotool search --onlyvisible --name . 2>/dev/null | grep -qx "$1"
}

window_fills_display() {
    [ "$(xdotool getwindowgeometry --shell "$window" | grep -E '^(X|Y|WIDTH|HEIGHT)=' | tr '\n' ' ')" = \
        "X=0 Y=0 WIDTH=$width HEIGHT=$height " ]
}
