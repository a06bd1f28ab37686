#!/usr/bin/env bash
# Starts the built program on a display of its own, types, clicks, drags and saves with real events,
# and reads the designs back from the settings files.
#   end_to_end.sh PROGRAM
set -eu
program=$1
script=$(realpath "$0")
for tool in xvfb-run xdotool; do
  command -v $tool >/dev/null || { echo "skipped: no $tool"; exit 77; }
done

if [ -z "${KELVRO_END_TO_END:-}" ]; then
  folder=$(mktemp -d)
  trap 'rm -rf "$folder"' EXIT
  cd "$folder"
  KELVRO_END_TO_END=1 XDG_CONFIG_HOME=$folder XDG_RUNTIME_DIR=$folder QT_QPA_PLATFORM=xcb \
    xvfb-run -a -s "-screen 0 1280x800x24" "$script" "$program"
  echo "what was typed is in the settings files"
  exit 0
fi

ini=$XDG_CONFIG_HOME/kelvro/kelvro.ini

# holds FILE LINE...: all lines stand in the file, within some seconds
holds() {
  local file=$1 line
  shift
  for line in "$@"; do
    for _ in $(seq 50); do
      [ -f "$file" ] && tr -d '\r' <"$file" | grep -qxF "$line" && continue 2
      sleep 0.1
    done
    echo "no line $line in $file"
    cat "$file"
    exit 1
  done
}

# start ARGUMENT...: the program with its window in front
start() {
  "$program" "$@" nopt &
  pid=$!
  trap 'kill $pid 2>/dev/null' EXIT
  window=$(timeout 30 xdotool search --sync --onlyvisible --name "Matching Network and PA Design" | head -1)
  sleep 0.5
  xdotool windowfocus --sync "$window"
}

box() {
  xdotool search --onlyvisible --name "^Matching Networks$" 2>/dev/null | head -1
}

# box_other_than ID: waits for a message box that is not the named one
box_other_than() {
  local id
  for _ in $(seq 100); do
    id=$(box)
    [ -n "$id" ] && [ "$id" != "$1" ] && { sleep 0.2; echo "$id"; return; }
    sleep 0.1
  done
  echo "no message box" >&2
  exit 1
}

box_gone() {
  for _ in $(seq 100); do
    [ -z "$(box)" ] && return
    sleep 0.1
  done
  echo "the message box stays" >&2
  exit 1
}

ended() {
  for _ in $(seq 50); do
    kill -0 $pid 2>/dev/null || { wait $pid && return 0 || return 1; }
    sleep 0.1
  done
  echo "the program did not end"
  exit 1
}

# Tab selects the text of fo; leaving writes back what is in use, and a pause saves it.
start
xdotool key --delay 50 Tab Tab
xdotool type --delay 50 "5 MHz"
holds "$ini" fo=5.00M R1=50.00 R2=200.00 Typ=1
# A click selects all of it, so that what is typed takes the place of the text.
xdotool key --delay 50 Tab
xdotool mousemove --window "$window" 170 163 click 1
xdotool type --delay 50 433.92M
holds "$ini" fo=433.92M
xdotool key --delay 50 ctrl+a
xdotool type --delay 50 5M
holds "$ini" fo=5.00M
# The refusal of 300 > 200 lets the fourth digit through, and Escape closes the second one.
xdotool key --delay 50 shift+Tab shift+Tab
xdotool type --delay 50 300
first=$(box_other_than none)
xdotool key 0
second=$(box_other_than "$first")
holds "$ini" R1=3.00k
xdotool key Escape
box_gone
xdotool windowfocus --sync "$window"
xdotool key --delay 50 ctrl+a
xdotool type --delay 50 20
holds "$ini" R1=20.00
# Nothing typed is lost when the process is asked to end.
xdotool key --delay 50 ctrl+a
xdotool type --delay 50 21
sleep 0.6  # the keys have arrived, the pause before saving has not passed
kill -TERM $pid
ended
holds "$ini" R1=21.00 fo=5.00M

# A design of one's own, saved under a name that is asked for; then with another value.
start
xdotool key --delay 50 ctrl+shift+s
sleep 1
xdotool key --delay 50 ctrl+a
xdotool type --delay 20 "$PWD/mine.ini"
xdotool key Return
holds "$PWD/mine.ini" R1=21.00
xdotool windowfocus --sync "$window"
xdotool key --delay 50 alt+x
ended
sed -i 's/^R1=21.00/R1=42/' mine.ini

start "$PWD/mine.ini"
xdotool search --name "mine.ini" >/dev/null || { echo "no caption with the file's name"; exit 1; }
holds "$ini" R1=42.00
# All components rounded by one key: the file says how they are shown.
xdotool key --delay 50 alt+a
for _ in $(seq 50); do
  grep -aq '^Shown on page 1=C1 standard .*; L standard ' "$ini" && break
  sleep 0.1
done
grep -aq '^Shown on page 1=C1 standard ' "$ini" || { echo "nothing was rounded"; cat "$ini"; exit 1; }
# A second instance says that one is running, and leaves its file alone.
first=$pid
"$program" nopt &
pid=$!
trap 'kill $first $pid 2>/dev/null' EXIT
xdotool windowfocus --sync "$(box_other_than none)"
xdotool key Return
box_gone
second=
for _ in $(seq 100); do
  second=$(xdotool search --onlyvisible --name "^Kelvro - Matching Network" | head -1)
  [ -n "$second" ] && break
  sleep 0.1
done
xdotool windowfocus --sync "$second"
sleep 0.5
xdotool key --delay 50 ctrl+a
xdotool type --delay 50 77
sleep 1.5
xdotool key --delay 50 alt+x
ended
holds "$ini" R1=42.00
pid=$first
xdotool windowfocus --sync "$window"
xdotool key --delay 50 alt+x
ended
holds "$ini" R1=42.00
trap - EXIT
