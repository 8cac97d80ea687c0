# shellcheck shell=bash
# A bench: an X screen, a Wine prefix and a print queue of its own, for running the Windows program
# without a person and beside other benches. Sourced; `root` is the checkout.

# What starts a Windows program. The loader lies just below a page that every such program needs at
# its fixed address. A heap placed at random takes that page now and then, and the program does not
# start, so nothing is placed at random, where the system allows that.
wine=(setarch --addr-no-randomize /usr/lib/wine/wine64)
"${wine[@]:0:2}" true 2>/dev/null || wine=("${wine[@]:2}")
readonly wine
readonly wineserver=/usr/lib/wine/wineserver
readonly wine_fonts=/usr/share/wine/fonts
readonly print_queue=Quorvel
# Letter, like the paper that reports are laid out on without a printer.
readonly paper=Letter

bench_display_pid=
bench_scheduler_pid=
bench_scratch=

# Everything of Wine's that is not the prefix: a quiet, English, Windows-1252 machine.
bench_wine_environment() {
    export LC_ALL=C.UTF-8 WINEDEBUG=-all WINEARCH=win64
    export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe='
}

# Runs a command whose output matters only where it fails.
bench_quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 </dev/null || status=$?
    if [[ $status -ne 0 ]]; then
        echo "failed with exit code $status: $*" >&2
        tail -n 20 "$log" >&2
    fi
    rm "$log"
    return "$status"
}

# Whether something was waited for in vain since this was last set to no.
bench_waited_in_vain=no

# Waits until the command succeeds, at most ten seconds.
bench_wait_for() {
    local tries
    for ((tries = 0; tries < 500; ++tries)); do
        if "$@" >/dev/null 2>&1; then return 0; fi
        sleep 0.02
    done
    echo "waited in vain for: $*" >&2
    bench_waited_in_vain=yes
    return 1
}

bench_start_display() {
    local size=$1 number_file=$bench_scratch/display
    Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp -noreset \
        3>"$number_file" >"$bench_scratch/xvfb.log" 2>&1 </dev/null &
    bench_display_pid=$!
    bench_wait_for grep -q . "$number_file"
    DISPLAY=:$(<"$number_file")
    export DISPLAY
    unset XAUTHORITY
}

bench_stop_wine() {
    "$wineserver" -k >/dev/null 2>&1 || true
    "$wineserver" -w
}

bench_stop_pid() {
    [[ -n $1 ]] || return 0
    kill "$1" 2>/dev/null || true
    wait "$1" 2>/dev/null || true
}

# Wine puts links to the person's home into a prefix; a bench keeps to itself.
bench_cut_home_links() {
    local link
    find "$WINEPREFIX/drive_c/users" -type l | while read -r link; do
        rm "$link"
        mkdir "$link"
    done
}

bench_build_template() {
    local template=$1
    echo "building the Wine prefix"
    rm -rf "$template"
    mkdir -p "$(dirname "$template")"
    export WINEPREFIX=$template
    bench_quietly "${wine[@]}" wineboot -i
    bench_quietly "${wine[@]}" regedit /S "$root/tests/realwindow/wine.reg"
    bench_quietly "${wine[@]}" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
    bench_stop_wine
    cp "$wine_fonts"/{marlett,tahoma,tahomabd,symbol}.ttf \
        "$wine_fonts"/{sserife,coure,smalle,vgasys}.fon "$template/drive_c/windows/Fonts/"
    bench_cut_home_links
}

# The prefix that all benches are copied from, built once. Needs a display.
bench_template() {
    local template=$root/build/wine/template wanted
    wanted=$({
        "${wine[@]}" --version
        declare -f bench_build_template bench_cut_home_links
        cat "$root/tests/realwindow/wine.reg"
    } | sha256sum)
    (
        flock 9
        if [[ $(cat "$template.made" 2>/dev/null) != "$wanted" ]]; then
            bench_build_template "$template"
            echo "$wanted" >"$template.made"
        fi
    ) 9>"$template.lock"
}

# Copies the template to $WINEPREFIX. All files are hard links but the registry, which Wine
# rewrites in place.
bench_copy_template() {
    local template=$root/build/wine/template
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    cp -al "$template/." "$WINEPREFIX/"
    cp --remove-destination "$template"/{system,user,userdef}.reg "$WINEPREFIX/"
}

# A print scheduler of the bench's own. It runs from a copy, since a system may confine the
# scheduler at its usual place to the usual folders.
bench_start_scheduler() {
    local dir=$bench_scratch/printing file
    mkdir -p "$dir"/{etc,bin/backend,spool/tmp,cache,state,log,out}
    for file in /usr/lib/cups/*; do
        [[ $(basename "$file") == backend ]] || ln -s "$file" "$dir/bin/"
    done
    for file in cupsd.conf cups-files.conf; do
        sed "s|@DIR@|$dir|" "$root/tests/realwindow/cups/$file" >"$dir/etc/$file"
    done
    sed "s|@DIR@|$dir|" "$root/tests/realwindow/cups/tofile" >"$dir/bin/backend/tofile"
    chmod 700 "$dir/bin/backend/tofile"
    cp /usr/sbin/cupsd "$dir/cupsd"
    if [[ $(id -u) -eq 0 ]]; then
        # The scheduler's filters run as another user.
        printf 'User lp\nGroup lp\n' >>"$dir/etc/cups-files.conf"
        chown -R root:lp "$dir"
        chmod 755 "$bench_scratch"
        chmod 1770 "$dir/spool/tmp"
    fi
    "$dir/cupsd" -f -c "$dir/etc/cupsd.conf" -s "$dir/etc/cups-files.conf" \
        >"$bench_scratch/cupsd.log" 2>&1 </dev/null &
    bench_scheduler_pid=$!
    export CUPS_SERVER=$dir/cups.sock QUORVEL_PRINTING=$dir
    bench_wait_for bench_scheduler_answers
    bench_quietly lpadmin -p "$print_queue" -E -v tofile:/ -o PageSize="$paper" \
        -P /usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd
    bench_quietly lpadmin -d "$print_queue"
}

bench_scheduler_answers() {
    lpstat -r | grep -q 'is running'
}

# Removes what benches left that could not close themselves.
bench_remove_leftovers() {
    local prefix
    for prefix in "$root"/build/wine/bench-*; do
        if [[ -e $prefix && ! -e /proc/${prefix##*-} ]]; then
            WINEPREFIX=$prefix bench_stop_wine
            rm -rf "$prefix"
        fi
    done
}

# bench_open NAME SCREEN PRINTER: SCREEN such as 1024x768, PRINTER ready or none. Exports what
# Wine needs, and QUORVEL_PRINTING, the folder of the print queue. The caller sees to it that
# bench_close runs.
bench_open() {
    local name=$1 screen=$2 printer=$3
    bench_wine_environment
    mkdir -p "$root/build/wine"
    bench_scratch=$(mktemp -d "${TMPDIR:-/tmp}/quorvel.XXXXXX")
    bench_start_display "$screen"
    bench_template
    bench_remove_leftovers
    export WINEPREFIX=$root/build/wine/bench-$name-$BASHPID
    bench_copy_template
    # Up before the first program and until the bench closes: one that comes while the server starts
    # or ends by itself is turned away now and then.
    bench_quietly "$wineserver" -p
    if [[ $printer == ready ]]; then
        bench_start_scheduler
    else
        export CUPS_SERVER=$bench_scratch/no-printer.sock QUORVEL_PRINTING=
    fi
}

bench_close() {
    if [[ ${WINEPREFIX:-} == "$root"/build/wine/bench-* && -e $WINEPREFIX ]]; then
        bench_stop_wine
        rm -rf "$WINEPREFIX"
    fi
    bench_stop_pid "$bench_scheduler_pid"
    bench_stop_pid "$bench_display_pid"
    [[ -z $bench_scratch ]] || rm -rf "$bench_scratch"
    bench_scheduler_pid='' bench_display_pid='' bench_scratch=''
}

# bench_run SECONDS PROGRAM ARGUMENT...: a Windows program on the bench, at most that long.
bench_run() {
    local seconds=$1
    shift
    # In the background, so that a signal to this shell is not kept waiting.
    timeout --kill-after=5 "$seconds" "${wine[@]}" "$@" </dev/null &
    wait $!
}
