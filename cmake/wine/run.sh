#!/bin/bash
# Runs a Windows program under Wine: run.sh program.exe arguments...
#
# Each run gets a thin prefix of its own (registry and user folders; Windows itself is a link into a template that is
# made once per build folder) and leaves neither files nor processes behind, so runs may go in parallel. The program's
# output goes to files and is printed when it has ended, since Wine's background processes would keep a pipe open.
# The program's exit status is passed on; one that ends abnormally gives a status other than 0, the limit 124.
#
#   KOLM_WINE_TIMEOUT    limit in seconds (default 300)
#   KOLM_WINE_DISPLAY    null: no display (default); xvfb: an X server for this run; x11: the one that DISPLAY names
#   KOLM_WINE_PREFIX     keep and use this prefix (made thin where missing) instead of one for this run only
#   KOLM_WINE_STATE      folder of template and prefixes (default: "wine" in the program's build folder)
#   KOLM_WINE_OUTPUT     live: print output as it comes
#   KOLM_WINE_BACKTRACE  1: a crash prints its backtrace (names only where the program has debug information)
#   WINEDEBUG            default -all
#   WINEDLLOVERRIDES     added to ours
set -Eeuo pipefail
trap 'echo "run.sh: line $LINENO failed with status $?" >&2' ERR

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=prefix.sh
. "$here/prefix.sh"

if (($# == 0)); then
    sed -n '2,/^set /{/^# \{0,1\}/!d;s///;p}' "${BASH_SOURCE[0]}" >&2
    exit 2
fi

limit=${KOLM_WINE_TIMEOUT:-300}
display=${KOLM_WINE_DISPLAY:-null}
case $display in
    null | xvfb | x11) ;;
    *) die "KOLM_WINE_DISPLAY=$display: null, xvfb or x11" ;;
esac

find_wine
state=$(state_folder "$1")
template="" run="" prefix="" x_server="" program=""

# Ends what this run started and removes its files. Descriptor 9 is the run's lock: every process of the prefix
# inherits it, so the lock is free exactly when the last of them has gone.
# shellcheck disable=SC2317  # called by the traps below
clean_up() {
    trap '' HUP INT TERM
    trap - ERR
    set +e
    if [[ -n $program ]]; then
        kill -KILL "$program" 2>/dev/null || true
    fi
    if [[ -n $run ]]; then
        if [[ $prefix == "$run/prefix" ]]; then
            end_prefix "$prefix" "$run.lock"
        elif [[ $display == xvfb && -e $prefix/wineserver ]]; then
            # Wine's desktop must not outlive the display that it stands on.
            stop_server "$prefix"
        fi
    fi
    if [[ -n $x_server ]]; then
        kill "$x_server" 2>/dev/null || true
        wait "$x_server" 2>/dev/null || true
    fi
    if [[ -n $run ]]; then
        remove_run "$run"
    fi
}
trap clean_up EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

prepare_state
if [[ -n ${KOLM_WINE_PREFIX:-} ]]; then
    prefix=$(realpath -m "$KOLM_WINE_PREFIX")
else
    prefix=$run/prefix
fi
prepare_prefix "$prefix" "$display"

if [[ $display == xvfb ]]; then
    # The server itself chooses a free display number and tells it when it is ready.
    setpriv --pdeathsig KILL Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp \
        3>"$run/display" >"$run/xvfb.log" 2>&1 9>&- &
    x_server=$!
    for ((i = 0; i < 200; i++)); do
        if [[ -s $run/display ]]; then break; fi
        kill -0 "$x_server" 2>/dev/null || die "Xvfb did not start: $(cat "$run/xvfb.log")"
        sleep 0.05
    done
    [[ -s $run/display ]] || die "Xvfb was not ready in 10 s: $(cat "$run/xvfb.log")"
    DISPLAY=:$(<"$run/display")
    export DISPLAY
elif [[ $display == null ]]; then
    unset DISPLAY
fi

# Where both streams of ours are one, the program's are too: their lines keep their order.
out=$run/stdout
err=$run/stderr
if [[ $(readlink /proc/$$/fd/1) == "$(readlink /proc/$$/fd/2)" ]]; then
    err=$out
fi
: >"$out"
: >"$err"

status=0
started=$SECONDS
# "timeout" ends the program even if this script is killed.
run_wine "$prefix" setpriv --pdeathsig TERM timeout --kill-after=2 --signal=KILL "$limit" \
    "$WINE" "$@" <&0 >>"$out" 2>>"$err" &
program=$!

printers=()
if [[ ${KOLM_WINE_OUTPUT:-} == live ]]; then
    tail --pid="$program" -s 0.1 -c +1 -f "$out" 9>&- &
    printers+=($!)
    if [[ $err != "$out" ]]; then
        tail --pid="$program" -s 0.1 -c +1 -f "$err" 9>&- >&2 &
        printers+=($!)
    fi
fi

# (The shell's own report of a killed program is no news: the status says it.)
{ wait "$program" || status=$?; } 2>/dev/null
program=""

if ((${#printers[@]})); then
    wait "${printers[@]}" || true
else
    cat "$out"
    if [[ $err != "$out" ]]; then cat "$err" >&2; fi
fi
if ((status == 137 && SECONDS - started >= limit)); then
    echo "run.sh: ended at its limit of $limit s: $1" >&2
    status=124
fi
exit "$status"
