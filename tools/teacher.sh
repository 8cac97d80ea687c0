# shellcheck shell=bash
# A teacher at the real window: mouse and keys through the X server, nothing else. Sourced after
# bench.sh, on an open bench; `root` is the checkout.

# Where the window's client area begins in its frame, and the grid in the client area (pixels).
readonly frame_left=3 frame_top=41
readonly grid_left=150 grid_top=14 column_pitch=30 row_pitch=14

# What the program is called while no class is open.
readonly program_title=Quorvel

window_is_open() {
    xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1
}

window_is_closed() {
    ! window_is_open "$1"
}

screen_picture() {
    import -window root rgb:- | sha256sum
}

# Waits until nothing moves on the screen any more; a blinking caret is not waited for.
screen_settles() {
    local before='' now tries
    for ((tries = 0; tries < 15; ++tries)); do
        now=$(screen_picture)
        if [[ $now == "$before" ]]; then return 0; fi
        before=$now
        sleep 0.15
    done
}

# Waits for a window of that title and until it is painted. Which window the X server says has the
# focus is no sign: Wine passes keys on to its own active window.
wait_for_window() {
    bench_wait_for window_is_open "$1"
    screen_settles
}

press() {
    xdotool key --delay 30 "$@"
}

write_text() {
    xdotool type --delay 15 "$1"
}

# teacher_start FOLDER: copies the program and the sample classes to C:\FOLDER and starts it there.
teacher_start() {
    local folder=$WINEPREFIX/drive_c/$1
    mkdir -p "$folder/Grades"
    cp -r "$root/build/windows/Quorvel/." "$folder/"
    cp "$root"/assets/samples/*.qrv "$folder/Grades/"
    "${wine[@]}" "C:\\$1\\Quorvel.exe" >/dev/null 2>&1 </dev/null &
    teacher_program=$!
    wait_for_window "$program_title"
}

# teacher_open_class FILE: opens a sheet of the Grades folder by its name.
teacher_open_class() {
    press ctrl+o
    wait_for_window 'Open Gradesheet'
    write_text "$1"
    press Return
    wait_for_window "$1"
}

# teacher_click_at TITLE X Y [BUTTON]: clicks a pixel of the client area, usually with button 1.
teacher_click_at() {
    local window left top
    window=$(xdotool search --onlyvisible --name "^$1\$" | head -n 1)
    left=$(xwininfo -id "$window" | sed -n 's/.*Absolute upper-left X: *//p')
    top=$(xwininfo -id "$window" | sed -n 's/.*Absolute upper-left Y: *//p')
    xdotool mousemove $((left + frame_left + $2)) $((top + frame_top + $3)) click "${4-1}"
}

# teacher_click TITLE ROW COLUMN: clicks a cell of the grid on screen, counted from 1.
teacher_click() {
    teacher_click_at "$1" $((grid_left + column_pitch * ($3 - 1) + column_pitch / 2)) \
        $((grid_top + row_pitch * ($2 - 1) + row_pitch / 2))
}

# teacher_type_score TITLE ROW COLUMN SCORE
teacher_type_score() {
    teacher_click "$1" "$2" "$3"
    screen_settles
    write_text "$4"
    press Return
}

# teacher_print KIND JOB: prints a report and waits for the queue's JOB-th file.
teacher_print() {
    press ctrl+p
    wait_for_window 'Print Method'
    write_text "$1"
    press Return
    bench_wait_for window_is_closed 'Print Method'
    case $1 in
        2)
            wait_for_window "$program_title"
            press Return
            ;;
        3)
            wait_for_window 'Print Individual Student Report Error'
            write_text 1
            press Return
            ;;
    esac
    bench_wait_for test -e "$QUORVEL_PRINTING/out/job-$2.done"
}

# Closes the program by its menu, without saving what is unsaved.
teacher_exit() {
    press alt+f
    screen_settles
    press x
    wait_for_window 'Exit Check'
    press Return
    wait "$teacher_program"
}

screenshot() {
    screen_settles
    import -window root "$1"
}
