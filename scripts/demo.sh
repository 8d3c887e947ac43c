#!/usr/bin/env bash
# Plays a day's work on a copy of the sample company on the real program, driven by keys, at 100 % and at 150 %, and
# leaves pictures, a page that shows them, a summary, the sample company and the copy that was worked on in
# demo-out/. Nothing outside of demo-out/ is touched.
#
#   scripts/demo.sh            without a screen, as fast as it goes
#   scripts/demo.sh --watch    on the display that is there, at a pace to look at
#   scripts/demo.sh --sizes    as the first, and at 125 % and on 1280x720 as well
#   scripts/demo.sh --readme   as the first, and renews the pictures of the README in docs/pictures/
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

demo=build/release/bin/demo

without_screen() { # suffix of the pictures, scale in percent, width and height of the screen at 100 %
    local width=${3:-1366} height=${4:-768} screen
    # The copy is new for each run; the one of the last run stays.
    rm -rf demo-out/company
    screen=$(mktemp)
    sed -e "s/1366/$((width * $2 / 100))/" -e "s/768/$((height * $2 / 100))/" demo/screen.json >"$screen"
    QT_QPA_PLATFORM=offscreen:configfile=$screen QT_SCALE_FACTOR=$(($2 / 100)).$(($2 % 100)) \
        "$demo" demo-out "$1" "${width}x$height"
    rm "$screen"
}

if [ $# -gt 1 ]; then set -- wrong; fi
case "${1:-}" in
--watch)
    if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        say "There is no display here to watch it on."
        exit 2
    fi
    rm -rf demo-out
    build/release/bin/make-sample-company demo-out/sample
    "$demo" demo-out "" 1366x768 150
    ;;
"" | --sizes | --readme)
    rm -rf demo-out
    build/release/bin/make-sample-company demo-out/sample
    if [ "${1:-}" = --sizes ]; then
        without_screen -125 125
        without_screen -720 100 1280 720
        without_screen -720-150 150 1280 720
    fi
    without_screen -150 150
    without_screen "" 100
    ;;
*)
    say "usage: scripts/demo.sh [--watch | --sizes | --readme]"
    exit 2
    ;;
esac
cp build/release/bin/korvane demo-out/company/

if [ "${1:-}" = --readme ]; then
    mkdir -p docs/pictures
    cp demo-out/*-waybill-editing.png docs/pictures/waybill-card.png
fi

cat demo-out/summary.txt
say ""
say "To read from top to bottom: demo-out/index.html"
say "Pictures: demo-out/*.png (at 150 %: demo-out/*-150.png), the figures above: demo-out/summary.txt"
say "The list of waybills as a workbook: demo-out/速递单.xls"
say "The company: demo-out/company/ (on a desktop, demo-out/company/korvane opens it; operator 001, no password)"
