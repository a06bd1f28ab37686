#!/usr/bin/env bash
# Starts the built program on a display of its own, types, clicks, drags and saves with real events,
# and reads the designs back from the settings files.
#   end_to_end.sh PROGRAM DRAG_SOURCE
. "$(dirname "$(realpath "$0")")/x_session.sh"
drag_source=$2

# click X Y [BUTTON [TIMES]]: at a place of the main window
click() {
  xdotool mousemove --window "$window" "$1" "$2" click --repeat "${4:-1}" --delay 60 "${3:-1}"
  sleep 0.3
}

# The middle of fields and outputs of the first page, in the main window.
fo="170 152"
inductance="170 254"

box() {
  xdotool search --onlyvisible --name "^Matching Networks$" 2>/dev/null | head -1
}

is_other_box() {
  local id
  id=$(box)
  [ -n "$id" ] && [ "$id" != "$1" ]
}

# box_other_than ID: waits for a message box that is not the named one
box_other_than() {
  within 10 is_other_box "$1" || { echo "no message box" >&2; exit 1; }
  sleep 0.2
  box
}

box_gone() {
  within 10 no_window "^Matching Networks$" || { echo "the message box stays"; exit 1; }
}

typing() {
  # Tab selects the text of fo; leaving writes back what is in use, and a pause saves it.
  keys Tab Tab
  xdotool type --delay 50 "5 MHz"
  holds "$ini" fo=5.00M R1=50.00 R2=200.00 Typ=1
  # A click selects all of it, so that what is typed takes the place of the text; so does a
  # double-click; a second click places the caret behind the last digit.
  keys Tab
  click $fo
  xdotool type --delay 50 433.92M
  holds "$ini" fo=433.92M
  keys Tab
  click $fo 1 2
  xdotool type --delay 50 145.5M
  holds "$ini" fo=145.50M
  keys Tab
  click $fo
  click 201 152
  keys End
  xdotool type --delay 50 Hz
  keys Home
  xdotool type --delay 50 1
  holds "$ini" fo=1.15G
  # Numbers as people write them, in the field's own unit.
  # Of these one number is read, and the field says what is not.
  enter "1,000,000"
  holds "$ini" fo=1.00
  enter "3k3"
  holds "$ini" fo=3.00k
  enter 5M
  holds "$ini" fo=5.00M
  # A page with a coil and a capacitor: units behind a blank, and both code points of µ.
  click 128 703
  holds "$ini" Typ=11
  click 180 254
  xdotool type --delay 80 "2 µH"
  holds "$ini" L=2.00u
  enter "3 μH"
  holds "$ini" L=3.00u
  click 180 283
  xdotool type --delay 50 "10 pF"
  holds "$ini" C=10.00p
  click 75 678
  holds "$ini" Typ=1
  click $fo
}

refusal() {
  # That of 300 > 200 lets the fourth digit through, and Escape closes the second one.
  keys shift+Tab shift+Tab
  xdotool type --delay 50 300
  first=$(box_other_than none)
  xdotool key 0
  second=$(box_other_than "$first")
  holds "$ini" R1=3.00k
  xdotool key Escape
  box_gone
  focus "$window"
  enter 20
  holds "$ini" R1=20.00
}

outputs() {
  # The coil of 20 to 200 ohm at 5 MHz has 6.37 µH before any optimization: the context menu rounds
  # it down, up, to the nearest of E12, and gives its own value back.
  local entry
  for entry in "d 5.6e-06" "u 6.8e-06" "n 6.8e-06"; do
    click $inductance 3
    keys "${entry% *}"
    holds "$ini" "Shown on page 1=.*L standard ${entry#* } .*"
  done
  click $inductance 3
  keys r
  holds "$ini" "Shown on page 1=.*L calculated .*"
  # All components by one key, and back by undo.
  keys alt+a
  holds "$ini" "Shown on page 1=C1 standard .*; C2 standard .*; L standard .*"
  keys ctrl+z
  holds "$ini" "Shown on page 1=C1 calculated .*; L calculated .*"
}

files() {
  # A design of one's own, saved under a name that is asked for; then with another value.
  keys ctrl+shift+s
  into_file_dialog "Save INI file" "$PWD/mine.ini"
  holds mine.ini R1=21.00
  within 5 shown "^mine.ini - " >/dev/null || { echo "no caption with the file's name"; exit 1; }
  # What is changed is marked, and no longer once it is saved.
  focus "$window"
  click $fo
  xdotool type --delay 50 6M
  within 5 shown '^mine.ini\* - ' >/dev/null || { echo "no mark of a change"; exit 1; }
  keys ctrl+shift+s
  holds mine.ini fo=6.00M
  within 5 no_window '^mine.ini\* - ' || { echo "the mark stays"; exit 1; }
  # New forgets it all; the file comes back by Open Recent, from the dialog, and dropped.
  sed 's/^R1=21.00/R1=33/; s/^R1Eingabe=21/R1Eingabe=33/' mine.ini >dropped.ini
  keys ctrl+n
  holds "$ini" R1=50.00 fo=100.00M
  keys alt+f r Return
  holds "$ini" R1=21.00 fo=6.00M
  keys ctrl+n
  holds "$ini" R1=50.00
  keys ctrl+o
  into_file_dialog "Load INI file" "$PWD/mine.ini"
  focus "$window"
  holds "$ini" R1=21.00 fo=6.00M
  drop "$PWD/dropped.ini"
  holds "$ini" R1=33.00 fo=6.00M
  # A file that is no settings file changes nothing at all.
  echo "no settings" >foreign.ini
  drop "$PWD/foreign.ini"
  focus "$(box_other_than none)"
  keys Return
  box_gone
  focus "$window"
  holds "$ini" R1=33.00
}

# drop FILE: dragged from a window of another program onto the main window
drop() {
  "$drag_source" "$1" &
  local source=$! from
  from=$(shown "^Drag source$")
  xdotool mousemove --window "$from" 60 30 mousedown 1
  for step in "80 40" "100 50"; do xdotool mousemove --window "$from" $step; sleep 0.1; done
  for step in "500 400" "520 420" "530 430"; do
    xdotool mousemove --window "$window" $step
    sleep 0.2
  done
  xdotool mouseup 1
  wait $source
  sleep 0.3
}

instances() {
  # A second one says that one is running, and leaves the first one's file alone.
  local first=$pid other
  "$program" &
  pid=$!
  trap 'kill $first $pid 2>/dev/null' EXIT
  focus "$(box_other_than none)"
  keys Return
  box_gone
  other=$(shown "^Kelvro - Matching Network")
  focus "$other"
  enter 77
  sleep 1.5
  keys alt+x
  ended
  holds "$ini" R1=42.00
  pid=$first
}

start nopt
typing
refusal
outputs
# Nothing typed is lost when the process is asked to end.
click $fo
keys shift+Tab shift+Tab
enter 21
sleep 0.6  # the keys have arrived, the pause before saving has not passed
kill -TERM $pid
ended
holds "$ini" R1=21.00 fo=5.00M

start nopt
files
keys alt+x
ended
# Killed at any time, also while it saves, the program leaves a whole file and no remnant.
start nopt
for digits in 1 2 3; do
  enter "2$digits"
  sleep 0.$((digits * 4))
done
kill -KILL $pid
wait $pid 2>/dev/null || true
holds "$ini" "R1=.*" "Tolerance R=.*"
remnants=$(find "$XDG_CONFIG_HOME/kelvro" -type f ! -name '*.ini' ! -name '*.lock')
[ -z "$remnants" ] || { echo "left behind: $remnants"; exit 1; }

sed -i 's/^R1=21.00/R1=42/; s/^R1Eingabe=21/R1Eingabe=42/' mine.ini
start "$PWD/mine.ini" nopt
holds "$ini" R1=42.00
instances
focus "$window"
keys alt+x
ended
holds "$ini" R1=42.00
trap - EXIT
echo "what was typed, clicked and dropped is in the settings files"
