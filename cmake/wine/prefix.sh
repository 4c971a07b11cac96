# Wine prefixes for run.sh: the template, thin prefixes, and their ends. Read by "."; uses here, state, run, template.
# shellcheck shell=bash

die() {
    echo "run.sh: $*" >&2
    exit 125
}

# Sets WINE and WINESERVER. Debian's "wine" in the PATH is a script that asks for the 32-bit flavor as well.
find_wine() {
    if [[ -z ${WINE:-} ]]; then
        if [[ -x /usr/lib/wine/wine64 ]]; then
            WINE=/usr/lib/wine/wine64
        else
            WINE=$(command -v wine64 || command -v wine) || die "Wine is not installed: run cmake/setup.sh"
        fi
    fi
    if [[ -z ${WINESERVER:-} ]]; then
        if [[ -x /usr/lib/wine/wineserver64 ]]; then
            WINESERVER=/usr/lib/wine/wineserver64
        else
            WINESERVER=$(command -v wineserver) || die "wineserver is not installed: run cmake/setup.sh"
        fi
    fi
}

# The folder of template and runs: beside the build that the program belongs to.
state_folder() {
    local folder
    if [[ -n ${KOLM_WINE_STATE:-} ]]; then
        realpath -m "$KOLM_WINE_STATE"
        return
    fi
    if [[ -e $1 ]]; then
        folder=$(dirname "$(realpath "$1")")
        while [[ $folder != / ]]; do
            if [[ -e $folder/CMakeCache.txt ]]; then
                echo "$folder/wine"
                return
            fi
            folder=$(dirname "$folder")
        done
    fi
    realpath -m "$here/../../build/wine"
}

# Runs a command for a prefix. Only its processes have this WINEPREFIX in their environment.
run_wine() {
    local prefix=$1 overrides="mscoree=;mshtml=;winemenubuilder.exe=d"
    shift
    if [[ -z ${KOLM_WINE_BACKTRACE:-} ]]; then overrides+=";winedbg.exe=d"; fi
    WINEPREFIX=$prefix LC_ALL=C WINEDEBUG=${WINEDEBUG:--all} \
        WINEDLLOVERRIDES="$overrides${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}" \
        exec "$@"
}

# Tells a prefix's server to end and waits until its registry is on disk.
stop_server() {
    (run_wine "$1" "$WINESERVER" -k) >/dev/null 2>&1 9>&- || true
    (run_wine "$1" timeout 30 "$WINESERVER" -w) >/dev/null 2>&1 9>&- || true
}

# Makes the template, finds out what earlier runs left behind, and reserves a folder for this run: sets template, run.
# One at a time: the lock is held while a template is being made, too.
prepare_state() {
    local key lock
    mkdir -p "$state/runs"
    exec 8>"$state/lock"
    flock 8
    # Another Wine, other settings: another template.
    key=$({ "$WINE" --version && cat "$here/settings.reg"; } | sha256sum | cut -c1-12)
    template=$state/template-$key
    if [[ ! -e $template/ready ]]; then
        make_template 8>&-
    fi
    for lock in "$state"/runs/*.lock; do
        if [[ -e $lock ]]; then
            (if flock -n 7; then remove_run "${lock%.lock}"; fi) 7>"$lock" || true
        fi
    done
    run=$(mktemp -d "$state/runs/XXXXXX")
    exec 9>"$run.lock"
    flock 9
    exec 8>&-
}

make_template() {
    local log=$state/template.log
    rm -rf "$state"/template-*
    mkdir -p "$template"
    (
        unset DISPLAY
        (run_wine "$template" timeout -s KILL 180 "$WINE" wineboot -i)
        (run_wine "$template" timeout -s KILL 60 "$WINE" regedit /S "$here/settings.reg")
    ) >"$log" 2>&1 </dev/null || die "no Wine prefix could be made: see $log"
    stop_server "$template"
    grep -q '^"ksproxy.ax"="native,builtin"' "$template/user.reg" || die "settings did not reach $template"
    remove_socket_folder "$template"

    # Programs see folders of the prefix, never the home folder of whoever runs them.
    local link
    find "$template/drive_c/users" -type l -print0 | while IFS= read -r -d '' link; do
        rm "$link"
        mkdir "$link"
    done
    # No later Wine process updates a thin prefix: it would write through the link.
    echo disable >"$template/.update-timestamp"
    touch "$template/ready"
}

# Makes a thin prefix where there is none, and sets its display driver.
prepare_prefix() {
    local prefix=$1 driver=x11 folder
    if [[ $2 == null ]]; then driver=null; fi
    if [[ ! -e $prefix/user.reg ]]; then
        mkdir -p "$prefix/dosdevices" "$prefix/drive_c/ProgramData"
        ln -s ../drive_c "$prefix/dosdevices/c:"
        ln -s / "$prefix/dosdevices/z:"
        ln -sfn "$template/drive_c/windows" "$prefix/drive_c/windows"
        # Programs may be installed: into the prefix, never into the template.
        for folder in "Program Files" "Program Files (x86)"; do
            mkdir "$prefix/drive_c/$folder"
            ln -s "$template/drive_c/$folder"/* "$prefix/drive_c/$folder/"
        done
        cp -a "$template/drive_c/users" "$prefix/drive_c/"
        cp "$template/.update-timestamp" "$template/system.reg" "$template/userdef.reg" "$template/user.reg" "$prefix/"
    elif [[ ! -e $prefix/drive_c/windows/system32 ]]; then
        ln -sfn "$template/drive_c/windows" "$prefix/drive_c/windows"
    fi
    if ! grep -q "^\"Graphics\"=\"$driver\"" "$prefix/user.reg"; then
        if [[ -e $prefix/wineserver ]]; then stop_server "$prefix"; fi
        sed -i "s/^\"Graphics\"=.*/\"Graphics\"=\"$driver\"/" "$prefix/user.reg"
    fi
}

# Ends all processes of a prefix that is thrown away; $2 is the lock that they have inherited. Keeps it afterwards
# (descriptor 7), so that nobody else removes the files at the same time.
#
# "wineserver -k" alone takes half a second, as it first asks each process to end. Nothing in this prefix is kept, so
# its processes, found by their WINEPREFIX, are ended at once, by their ids.
end_prefix() {
    local prefix=$1 lock=$2 file pid i
    exec 9>&- 7>"$lock"
    for ((i = 0; i < 40; i++)); do
        while IFS= read -r file; do
            pid=${file#/proc/}
            kill -KILL "${pid%/environ}" 2>/dev/null || true
        done < <(grep -lzxF "WINEPREFIX=$prefix" /proc/[0-9]*/environ 2>/dev/null)
        if flock -w 0.05 7; then return 0; fi
    done
    stop_server "$prefix"
    flock -w 10 7 || echo "run.sh: processes of $prefix are still there" >&2
}

# Debian's Wine keeps the server's socket in a folder under /tmp whose name stands in this file, and leaves it there.
remove_socket_folder() {
    local name
    if [[ -r $1/wineserver ]]; then
        name=$(<"$1/wineserver")
        if [[ $name =~ ^wine-[A-Za-z0-9]{6}$ ]]; then
            rm -rf "/tmp/$name"
        fi
    fi
}

remove_run() {
    remove_socket_folder "$1/prefix"
    rm -rf "$1" "$1.lock"
}
