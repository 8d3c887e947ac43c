#!/usr/bin/env bash
# Plays a day's work of a sample company on the real program, driven by keys, at 100 % and at 150 %, and leaves pictures,
# a summary and the company's folder in demo-out/. Nothing outside of demo-out/ is touched.
#
#   scripts/demo.sh            without a screen, as fast as it goes
#   scripts/demo.sh --watch    on the display that is there, at a pace to look at
#   scripts/demo.sh --readme   as the first, and renews the pictures of the README in docs/pictures/
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

demo=build/release/bin/demo
out=demo-out

play() { # suffix, scale, further arguments of the program
    local suffix=$1 scale=$2
    shift 2
    # The company is new for each run; the one of the last run stays.
    rm -rf demo-out/company
    QT_SCALE_FACTOR=$scale "$demo" "$out" "$suffix" "$@"
}

without_screen() { # scale in percent: a screen of 1366x768 at that scale
    mkdir -p "$out"
    cat >"$out/screen.json" <<JSON
{"screens": [{"name": "demo", "x": 0, "y": 0, "width": $((1366 * $1 / 100)), "height": $((768 * $1 / 100)),
  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}
JSON
    export QT_QPA_PLATFORM=offscreen:configfile=$out/screen.json
}

rm -rf demo-out
case "${1:-}" in
--watch)
    mkdir -p "$out"
    play "" 1 1366x768 150
    ;;
"" | --readme)
    without_screen 150
    play -150 1.5
    without_screen 100
    play "" 1
    rm "$out/screen.json"
    ;;
*)
    say "usage: scripts/demo.sh [--watch | --readme]"
    exit 2
    ;;
esac
cp build/release/bin/korvane "$out/company/korvane"

if [ "${1:-}" = --readme ]; then
    mkdir -p docs/pictures
    cp "$out/19-waybill-editing.png" docs/pictures/waybill-card.png
fi

cat "$out/summary.txt"
say ""
say "Pictures: $out/*.png (at 150 %: $out/*-150.png), the figures above: $out/summary.txt"
say "The company: $out/company/ (on a desktop, $out/company/korvane opens it; operator 001, password korvane1)"
