# What the end-to-end scripts share: a display of their own, an empty folder, and hands for windows,
# message boxes and files. To be sourced with the script's arguments; the first is the program.
set -eu
export LC_ALL=C.UTF-8  # xdotool types µ in no other
unset LANGUAGE          # the windows speak English
program=$1
for tool in xvfb-run xdotool python3; do
  command -v $tool >/dev/null || { echo "skipped: no $tool"; exit 77; }
done

# Starts the script again on that display and ends with its answer; the second time it goes on.
if [ -z "${KELVRO_END_TO_END:-}" ]; then
  folder=$(mktemp -d)
  trap 'rm -rf "$folder"' EXIT
  script=$(realpath "$0")
  cd "$folder"
  KELVRO_END_TO_END=1 XDG_CONFIG_HOME=$folder XDG_STATE_HOME=$folder/state \
    XDG_RUNTIME_DIR=$folder QT_QPA_PLATFORM=xcb \
    xvfb-run -a -s "-screen 0 1280x800x24" "$script" "$@"
  exit
fi

ini=$XDG_CONFIG_HOME/kelvro/kelvro.ini

# within SECONDS COMMAND...: waits until the command succeeds
within() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.1
  done
}

has_line() {
  [ -f "$1" ] && tr -d '\r' <"$1" | grep -aqxE "$2"
}

# holds FILE PATTERN...: a line of each pattern stands in the file, within some seconds
holds() {
  local file=$1 line
  shift
  for line in "$@"; do
    within 10 has_line "$file" "$line" && continue
    echo "no line $line in $file"
    cat "$file"
    exit 1
  done
}

focus() {
  xdotool windowfocus --sync "$1"
  sleep 0.3
}

# shown NAME: the visible window of that name, waited for
shown() {
  timeout 30 xdotool search --sync --onlyvisible --name "$1" | head -1
}

# start ARGUMENT...: the program with its window in front
start() {
  "$program" "$@" &
  pid=$!
  trap 'kill $pid 2>/dev/null' EXIT
  window=$(shown "Matching Network and PA Design")
  sleep 0.5
  focus "$window"
}

# keys KEY...: pressed one after the other
keys() {
  xdotool key --delay 60 "$@"
  sleep 0.2
}

# enter TEXT: takes the place of what the field with the focus holds
enter() {
  keys ctrl+a
  xdotool type --delay 50 "$1"
}

# into_file_dialog NAME FILE: names the file in the dialog of that name
into_file_dialog() {
  focus "$(shown "$1")"
  enter "$2"
  keys Return
}

no_window() {
  [ -z "$(xdotool search --onlyvisible --name "$1" 2>/dev/null)" ]
}

has_ended() {
  ! kill -0 $pid 2>/dev/null
}

ended() {
  within 10 has_ended || { echo "the program did not end"; exit 1; }
  wait $pid
}
