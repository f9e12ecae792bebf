#!/usr/bin/env bash
# Kills the program at random moments while it saves and while it exports, and looks at what is left: a project
# that opens and is the old or the new one, a movie that is the old or the new one, and no half file beside them.
#
#   tests/app/kills.sh PROGRAM [N]    N kills of each kind, 10 without a number; ends with 1 where one did harm
set -uo pipefail
murbo=$1
kills=${2:-10}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
project=$work/p.mbproj
movie=$work/a.mp4
out=$work/out/out.mp4
mkdir "$work/out"

faults=0
fault() { echo "fault: $*"; faults=$((faults + 1)); }
sources() { "$murbo" --summary "$project" | tail -n 1 | sed 's/ .*//'; }
nothing_beside() {
    local left
    left=$(find "$(dirname "$1")" -type f ! -name "$(basename "$1")")
    [ -z "$left" ] || fault "left beside $1: $left"
}

# Runs the words many times, and kills them at random moments of the time that they take when left alone.
# `before_…` comes before each kill, `after_…` tells then whether the old thing is there, the new one or neither.
kill_while() {
    local what=$1 old=0 new=0 start spent
    shift
    start=$(date +%s%N)
    "$@" >/dev/null || fault "could not even run: $*"
    spent=$(($(date +%s%N) - start))
    for ((i = 0; i < kills; i++)); do
        "before_$what"
        "$@" >/dev/null 2>&1 &
        sleep "$(awk -v most="$spent" -v part="$RANDOM" 'BEGIN { print most / 1e9 * 1.1 * part / 32768 }')"
        kill -KILL $! 2>/dev/null
        wait $! 2>/dev/null
        "$murbo" --summary "$project" >/dev/null || fault "the project no longer opens"
        case $("after_$what") in
            old) old=$((old + 1)) ;;
            new) new=$((new + 1)) ;;
            *) fault "$what left neither the old nor the new one" ;;
        esac
        [ "$what" = saving ] || nothing_beside "$out"
    done
    echo "$kills kills while $what: $old times the old one is left, $new times the new one"
}

# --------------------------------------------------------------------- saving --
ffmpeg -nostdin -loglevel error -f lavfi -i testsrc2=s=320x180:r=25:d=2 -f lavfi -i sine=d=2 \
    -c:v libx264 -preset ultrafast -c:a aac -shortest "$movie"
"$murbo" --new "$project"
many=()
for ((i = 0; i < 40; i++)); do many+=("$movie"); done
"$murbo" --add-files "$project" "${many[@]}" >/dev/null

before_saving() { cp "$project/project.json" "$work/before.json"; count=$(sources); }
after_saving() {
    if cmp -s "$project/project.json" "$work/before.json"; then echo old
    elif [ "$(sources)" = $((count + 1)) ]; then echo new; fi
}
kill_while saving "$murbo" --add-files "$project" "$movie"
# What a kill leaves unfinished, the next save takes over: it never adds up.
"$murbo" --add-files "$project" "$movie" >/dev/null
nothing_beside "$project/project.json"

# ------------------------------------------------------------------ exporting --
source=$(awk '/"sources"/ { inside = 1 } inside && /"id"/ { gsub(/[",]/, ""); print $NF; exit }' "$project/project.json")
cuts=""
for ((i = 10; i < 18; i++)); do
    cuts+="${cuts:+,}{\"id\": \"00000000-0000-4000-8000-0000000000$i\", \"source\": \"$source\", \"start\": 0, \"end\": 0.25}"
done
video="{\"id\": \"00000000-0000-4000-8000-000000000001\", \"number\": 1, \"title\": \"t\", \"aspect\": \"9:16\", \"cuts\": [$cuts]}"
sed -i "s|\"videos\": \[\]|\"videos\": [$video]|" "$project/project.json"

before_exporting() { echo "an old file" >"$out"; }
after_exporting() {
    local frames
    frames=$(ffprobe -v error -count_frames -select_streams v -show_entries stream=nb_read_frames -of csv=p=0 "$out" 2>/dev/null)
    if grep -aqx "an old file" "$out"; then echo old
    elif [ "$frames" = 40 ]; then echo new; fi
}
kill_while exporting "$murbo" --export "$project" V1 "$out" --fps 20
[ $faults = 0 ]
