#!/usr/bin/env bash
# Starts the built program on a display of its own, opens the gain plot, zooms with the wheel, drags,
# undoes, goes Home, sets limits by keys, sets markers, holds a curve, scatters, and reads back what
# was saved each time.
#   plot_end_to_end.sh PROGRAM
. "$(dirname "$(realpath "$0")")/x_session.sh"

# save FILE KEY...: asks the plot window to save by its keys and answers with the name.
save() {
  local file=$PWD/$1
  shift
  focus "$plot"
  for key in "$@"; do xdotool key "$key"; sleep 0.2; done
  into_file_dialog '^Save As$' "$file"
  within 10 test -s "$file" || { echo "not saved: $file"; exit 1; }
}

start
keys alt+v
plot=$(shown '^Gain - ')

# The view: wheel, drag, undo, Home, and the dialog of the limits.
save home.csv ctrl+e
xdotool mousemove --window "$plot" 300 250 click 4 click 4
save zoomed.csv ctrl+e
focus "$plot"
xdotool mousemove --window "$plot" 500 250 mousedown 1
for x in 480 440 400; do xdotool mousemove --window "$plot" $x 250; sleep 0.1; done
xdotool mouseup 1
save panned.csv ctrl+e
focus "$plot"
keys ctrl+z
save undone.csv ctrl+e
focus "$plot"
keys Home
save again.csv ctrl+e
focus "$plot"
keys ctrl+l
focus "$(shown '^Axis Limits$')"
enter 50M
keys Tab
enter 200M
keys Return
save limits.csv ctrl+e
# Back at home the view follows fo.
focus "$plot"
keys Home
focus "$window"
keys Tab Tab
enter 10M
sleep 0.5
save follows.csv ctrl+e

# Markers, the edges of the pass band, a held curve, and runs of one seed with their envelope.
focus "$plot"
keys Up m Right Right Right m b
save markers.svg alt+f v
focus "$plot"
keys h
focus "$(shown '^Hold Curve$')"
enter before
keys Return
focus "$window"
enter 12M
sleep 0.5
save held.svg alt+f v
seeded() {
  focus "$plot"
  keys alt+c s
  focus "$(shown '^Monte Carlo$')"
  enter 7
  keys Return
  focus "$plot"
  keys shift+F5
  sleep 0.5
  save "$1" ctrl+e
}
seeded runs.csv
seeded again_runs.csv
focus "$plot"
keys e
save envelope.csv ctrl+e
kill $pid
trap - EXIT

python3 - <<'CHECK'
import math
import re

def table(name):
    return [line.split(",") for line in open(name).read().split("\n") if line]

def span(name):
    rows = [line.split(",") for line in open(name).read().split()[1:]]
    return float(rows[0][0]), float(rows[-1][0])

def near(a, b):
    return abs(a / b - 1) < 1e-6

def texts(name):
    # A text is written in pieces where its letters come from several fonts.
    return "".join(re.findall(">([^<]*)</text", open(name, encoding="utf-8").read()))

home, zoomed, panned = span("home.csv"), span("zoomed.csv"), span("panned.csv")
# fo is 100 MHz: three decades up to 5 GHz.
assert near(home[0], 5e6) and near(home[1], 5e9), home
# Two notches halve the decades, about the place of the mouse.
assert near(math.log(zoomed[1] / zoomed[0]), math.log(1000) / 2), zoomed
assert home[0] < zoomed[0] < zoomed[1] < home[1], zoomed
# Dragged to the left, higher frequencies come into view; the width stays.
assert near(panned[1] / panned[0], zoomed[1] / zoomed[0]) and panned[0] > 1.05 * zoomed[0], panned
assert open("undone.csv").read() == open("zoomed.csv").read()
assert open("again.csv").read() == open("home.csv").read()
assert near(span("limits.csv")[0], 50e6) and near(span("limits.csv")[1], 200e6), span("limits.csv")
assert near(span("follows.csv")[0], 5e5) and near(span("follows.csv")[1], 5e8), span("follows.csv")
for text in ("1: f=", "2: f=", "Δf=", "1 LC Series Tank", "-3dB: "):
    assert text in texts("markers.svg"), (text, texts("markers.svg"))
assert "before :" in texts("held.svg"), texts("held.svg")
assert "1: f=" in texts("held.svg"), "markers survive a redraw"
# Ten runs with the same random parts each time; their envelope has columns of its own.
assert open("runs.csv").read() == open("again_runs.csv").read()
def columns(name, start):
    return [column for column in table(name)[0] if column.startswith(start)]

assert len(columns("runs.csv", "run ")) == 10 and len(columns("runs.csv", "before ")) == 1
for start in ("runs min", "runs 5 %", "runs median", "runs 95 %", "runs max"):
    assert len(columns("envelope.csv", start)) == 1, table("envelope.csv")[0]
print("views, markers, held curve and runs are in the saved files")
CHECK
