#!/usr/bin/env bash
# Every file that the command line writes, and the settings of the window, with each step of writing
# them failing in turn:
#   tests/faults.sh FOLDER_OF_THE_PROGRAMS_OR_ONE_OF_THEM [KILLS]
# Full disk and read-only folder need root (their file systems are mounted where mounts end with this
# script). KILLS times (300) per kind the program is killed at a random moment; a few make a test of
# seconds. What windows save on a full disk is in tests/ui/saved_files_test.cpp.
set -euo pipefail
programs=$(realpath "$1")
[ -d "$programs" ] || programs=$(dirname "$programs")
kills=${2:-300}
if [ "$(id -u)" -eq 0 ] && [ -z "${KELVRO_OWN_MOUNTS:-}" ] && unshare -m true 2>/dev/null; then
    exec env KELVRO_OWN_MOUNTS=1 unshare -m "$(realpath "$0")" "$programs" "$kills"
fi
cli=$programs/kelvro-cli
folder=$(mktemp -d)
trap 'umount -l "$folder/disk" 2>/dev/null || true; rm -rf --one-file-system "$folder"' EXIT
mkdir "$folder/disk" "$folder/elsewhere" "$folder/config"
cd "$folder"

name() { # of a kind's file
    case $1 in
    project) echo a.kelvro ;; report) echo opt.txt ;; calls) echo opt2.csv ;; table) echo a.tab ;;
    listing) echo a.txt ;; spice) echo a.cir ;; touchstone) echo a.s2p ;; *) echo "a.$1" ;;
    esac
}

save() { # KIND FILE R2
    case $1 in
    project) "$cli" analyze "series: L=1u" --source 50 --load "$3" --from 1M --to 2M --points 2 --save "$2" ;;
    report) "$cli" optimize pi --r2 "$3" --log "$2" ;;
    calls) "$cli" optimize pi --r2 "$3" --table "$2" ;;
    table) "$cli" table pi --r2 "$3" --from 1M --to 2G -o "$2" ;;
    listing | spice | touchstone | csv | json) "$cli" export pi --r2 "$3" --format "$1" -o "$2" ;;
    *) "$cli" plot pi --r2 "$3" -o "$2" ;;
    esac
}

failures=0
fail() {
    printf '%s: %s\n' "$kind" "$1"
    failures=$((failures + 1))
}

# Times and dates differ between runs; a PDF packs its own.
same() {
    if [ "$kind" = pdf ]; then
        [ "$(head -c 4 "$1")" = %PDF ] && [ "$(tail -c 6 "$1")" = %%EOF ]
    else
        cmp -s <(tr -d '0-9' <"$1") <(tr -d '0-9' <"$2")
    fi
}

# refused STEP FILE: is the save refused with one line, the old file as it was, and nothing else there?
refused() {
    local step=$1 file=$2 code=0 others
    save "$kind" "$file" 300 >/dev/null 2>said || code=$?
    [ $code = 1 ] || fail "$step: exit code $code"
    [ "$(wc -l <said)" = 1 ] || fail "$step: said '$(cat said)'"
    [ -d "$file" ] || cmp -s "$file" old || fail "$step: the old file has gone"
    others=$(find "$(dirname "$file")" -mindepth 1 ! -path "$file" ! -name filler)
    [ -z "$others" ] || fail "$step: leaves $others"
}

on_other_disks() {
    local file=$folder/disk/$1
    mount -t tmpfs -o size=64k tmpfs "$folder/disk"
    cp old "$file"
    head -c 1M /dev/zero >"$folder/disk/filler" 2>/dev/null || true
    refused "full disk" "$file"
    rm "$folder/disk/filler"
    cp old "$file"
    mount -o remount,ro "$folder/disk"
    refused "read-only folder" "$file"
    umount "$folder/disk"
}

link_and_permissions() {
    cp old elsewhere/real
    chmod 640 elsewhere/real
    ln -s ../elsewhere/real "$1"
    save "$kind" "$1" 300 >/dev/null 2>&1 || fail "link: not saved"
    [ -L "$1" ] || fail "link: replaced"
    ! cmp -s elsewhere/real old || fail "link: its target is not written"
    [ "$(stat -c %a elsewhere/real)" = 640 ] || fail "link: permissions of its target"
    [ "$(ls elsewhere)" = real ] || fail "link: leaves $(ls elsewhere)"
    rm "$1"
}

kill_at_random() {
    local file=$1 i longest lost=0 start=${EPOCHREALTIME/./}
    cp old "$file"
    save "$kind" "$file" 300 >/dev/null 2>&1
    longest=$((${EPOCHREALTIME/./} - start))
    cp "$file" new
    for ((i = 0; i < kills; i++)); do
        cp old "$file"
        chmod 640 "$file"
        (
            save "$kind" "$file" 300 &
            sleep "$(printf '0.%06d' $((RANDOM * longest / 32768)))"
            # The shell has become the program or waits for it.
            pkill -KILL -P $! || kill -KILL $! || true
            wait
        ) >/dev/null 2>&1 || true
        cmp -s "$file" old || same "$file" new || lost=$((lost + 1))
        [ "$(stat -c %a "$file")" = 640 ] || lost=$((lost + 1))
    done
    [ $lost = 0 ] || fail "kill: $lost of $kills files lost"
    [ "$(ls saved | wc -l)" = 1 ] || fail "kill: leaves $(ls saved | tr '\n' ' ')"
}

# Who has read a project that another one saves meanwhile is told, and changes nothing.
told() { # OUTPUT
    [ "$kind" = project ] && grep -q 'changed by another program' "$1" || fail "two at once: $(cat "$1")"
}

two_at_once() {
    local i first second
    cp old "$1"
    save "$kind" "$1" 7 >/dev/null 2>&1
    cp "$1" second
    for ((i = 0; i < (kills < 10 ? kills : 10); i++)); do
        save "$kind" "$1" 300 >/dev/null 2>said.first &
        first=$!
        save "$kind" "$1" 7 >/dev/null 2>said.second &
        second=$!
        wait $first || told said.first
        wait $second || told said.second
        same "$1" new || same "$1" second || { fail "two at once: mixed"; break; }
    done
}

for kind in project report calls table listing spice touchstone csv json png svg pdf bmp jpg gif wmf; do
    rm -rf saved old
    mkdir saved
    # A project that is saved is read before, for what others keep in it.
    if [ $kind = project ]; then save project old 50 >/dev/null; else echo old >old; fi
    file=$folder/saved/$(name $kind)
    mkdir "$file"
    refused "folder in the way" "$file"
    rmdir "$file"
    [ -z "${KELVRO_OWN_MOUNTS:-}" ] || on_other_disks "$(name $kind)"
    link_and_permissions "$file"
    kill_at_random "$file"
    two_at_once "$file"
done

# The window keeps its settings when it is asked to end; then comes the kill.
kind=settings
end_window() { # SECONDS, then killed so many MILLISECONDS later
    XDG_CONFIG_HOME=$folder/config QT_QPA_PLATFORM=offscreen "$programs/kelvro" --no-splash &
    sleep "$1"
    kill $!
    sleep "$(printf '0.%03d' "$2")"
    kill -KILL $! || true
    wait $! || true
}
settings=config/kelvro/kelvro.ini
end_window 5 900 >/dev/null 2>&1
cp $settings new
for ((i = 0; i < kills; i++)); do
    end_window 0.5 $((RANDOM % 60)) >/dev/null 2>&1
    same $settings new || fail "kill: lost"
done
left=$(find config -type f ! -name kelvro.ini ! -name '*.lock')
[ -z "$left" ] || fail "kill: leaves $left"

[ -n "${KELVRO_OWN_MOUNTS:-}" ] || echo "!! SKIPPED: full disk and read-only folder need root"
[ $failures = 0 ]
