#!/usr/bin/env bash
# Starts the built program on a display of its own, types 5M into the frequency field with real key
# events, leaves by Alt+X and reads the design back from the settings file.
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
  ini=$folder/kelvro/kelvro.ini
  for line in fo=5.00M R1=50.00 R2=200.00 Typ=1; do
    tr -d '\r' <"$ini" | grep -qxF "$line" || { echo "no line $line in"; cat "$ini"; exit 1; }
  done
  echo "the typed frequency is in the settings file"
  exit 0
fi

"$program" &
pid=$!
window=$(timeout 30 xdotool search --sync --onlyvisible --name "Matching Network and PA Design" | head -1)
sleep 0.5
xdotool windowfocus --sync "$window"
xdotool key --delay 50 Tab Tab # from R1 to R2 to fo, whose text is selected then
xdotool type --delay 50 5M
xdotool key alt+x
for _ in $(seq 50); do
  kill -0 $pid 2>/dev/null || { wait $pid; exit; }
  sleep 0.1
done
echo "the program did not end"
kill $pid
exit 1
