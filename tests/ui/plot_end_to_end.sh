#!/usr/bin/env bash
# Starts the built program on a display of its own, opens the gain plot, zooms with the wheel, drags,
# goes Home, sets markers with the keys, and reads back what was saved each time.
#   plot_end_to_end.sh PROGRAM
set -eu
program=$1
script=$(realpath "$0")
for tool in xvfb-run xdotool python3; do
  command -v $tool >/dev/null || { echo "skipped: no $tool"; exit 77; }
done

if [ -z "${KELVRO_END_TO_END:-}" ]; then
  folder=$(mktemp -d)
  trap 'rm -rf "$folder"' EXIT
  cd "$folder"
  KELVRO_END_TO_END=1 XDG_CONFIG_HOME=$folder XDG_RUNTIME_DIR=$folder QT_QPA_PLATFORM=xcb \
    xvfb-run -a -s "-screen 0 1280x800x24" "$script" "$program"
  python3 - <<'CHECK'
import math
import re

def span(name):
    rows = [line.split(",") for line in open(name).read().split()[1:]]
    return float(rows[0][0]), float(rows[-1][0])

def near(a, b):
    return abs(a / b - 1) < 1e-6

home, zoomed, panned = span("home.csv"), span("zoomed.csv"), span("panned.csv")
# fo is 100 MHz: three decades up to 5 GHz.
assert near(home[0], 5e6) and near(home[1], 5e9), home
# Two notches halve the decades, about the place of the mouse.
assert near(math.log(zoomed[1] / zoomed[0]), math.log(1000) / 2), zoomed
assert home[0] < zoomed[0] < zoomed[1] < home[1], zoomed
# Dragged to the left, higher frequencies come into view; the width stays.
assert near(panned[1] / panned[0], zoomed[1] / zoomed[0]) and panned[0] > 1.05 * zoomed[0], panned
assert open("again.csv").read() == open("home.csv").read()
# A text is written in pieces where its letters come from several fonts.
drawing = "".join(re.findall(">([^<]*)</text", open("markers.svg", encoding="utf-8").read()))
for text in ("1: f=", "2: f=", "Δf=", "1 LC Series Tank"):
    assert text in drawing, text
print("zoom, drag, Home and markers are in the saved files")
CHECK
  exit
fi

focus() {
  xdotool windowfocus --sync "$1"
  sleep 0.2
}

# save FILE KEYS...: asks the plot window to save by its keys and answers with the name.
save() {
  local file=$PWD/$1
  shift
  focus "$plot"
  for key in "$@"; do xdotool key "$key"; sleep 0.2; done
  focus "$(timeout 20 xdotool search --sync --onlyvisible --name '^Save As$' | head -1)"
  xdotool type --delay 20 "$file"
  xdotool key Return
  for _ in $(seq 100); do [ -s "$file" ] && return; sleep 0.1; done
  echo "not saved: $file"
  return 1
}

"$program" &
pid=$!
trap 'kill $pid' EXIT
window=$(timeout 30 xdotool search --sync --onlyvisible --name "Matching Network and PA Design" | head -1)
sleep 0.5
focus "$window"
# The button V(f) stands in the tool bar; the way to it is as long as the buttons before it.
plot=
for x in $(seq 255 25 480); do
  xdotool mousemove --window "$window" $x 38 click 1
  plot=$(timeout 2 xdotool search --sync --onlyvisible --name '^Gain - ' | head -1) && break
  xdotool key Escape
done
[ -n "$plot" ] || { echo "no gain plot"; exit 1; }

save home.csv ctrl+e
focus "$plot"
xdotool mousemove --window "$plot" 300 250 click 4 click 4
save zoomed.csv ctrl+e
focus "$plot"
xdotool mousemove --window "$plot" 500 250 mousedown 1
for x in 480 440 400; do xdotool mousemove --window "$plot" $x 250; sleep 0.1; done
xdotool mouseup 1
save panned.csv ctrl+e
focus "$plot"
xdotool key Home
save again.csv ctrl+e
focus "$plot"
xdotool key Up m Right Right Right m
save markers.svg alt+f v
