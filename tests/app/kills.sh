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

ffmpeg -nostdin -loglevel error -f lavfi -i testsrc2=s=320x180:r=25:d=2 -f lavfi -i sine=d=2 \
    -c:v libx264 -preset ultrafast -c:a aac -shortest "$movie"
"$murbo" --new "$project"
many=()
for ((i = 0; i < 40; i++)); do many+=("$movie"); done
"$murbo" --add-files "$project" "${many[@]}" >/dev/null

faults=0
fault() { echo "fault: $*"; faults=$((faults + 1)); }
sources() { "$murbo" --summary "$project" | tail -n 1 | sed 's/ .*//'; }
others() { find "$1" -type f ! -name "$2"; }

# The time that the words take when left alone, in nanoseconds.
measure() {
    local start
    start=$(date +%s%N)
    "$@" >/dev/null || fault "could not even run: $*"
    spent=$(($(date +%s%N) - start))
}
# Runs the words, and kills them at a random moment of that time.
killed() {
    "$@" >/dev/null 2>&1 &
    local pid=$!
    sleep "$(awk -v most="$spent" -v part="$RANDOM" 'BEGIN { print most / 1e9 * 1.1 * part / 32768 }')"
    kill -KILL $pid 2>/dev/null
    wait $pid 2>/dev/null
}

# --------------------------------------------------------------------- saving --
old=0
new=0
measure "$murbo" --add-files "$project" "$movie"
for ((i = 0; i < kills; i++)); do
    cp "$project/project.json" "$work/before.json"
    before=$(sources)
    killed "$murbo" --add-files "$project" "$movie"
    "$murbo" --summary "$project" >/dev/null || { fault "the project no longer opens"; break; }
    if cmp -s "$project/project.json" "$work/before.json"; then
        old=$((old + 1))
    elif [ "$(sources)" = $((before + 1)) ]; then
        new=$((new + 1))
    else
        fault "the project is neither the old nor the new one"
    fi
done
# What a kill leaves unfinished, the next save takes over: it never adds up.
"$murbo" --add-files "$project" "$movie" >/dev/null
left=$(others "$project" project.json)
[ -z "$left" ] || fault "left in the project: $left"
echo "$kills kills while saving: $old times the old project, $new times the new one"

# ------------------------------------------------------------------ exporting --
source=$(awk '/"sources"/ { inside = 1 } inside && /"id"/ { gsub(/[",]/, ""); print $NF; exit }' "$project/project.json")
cuts=""
for ((i = 10; i < 18; i++)); do
    cuts+="${cuts:+,}{\"id\": \"00000000-0000-4000-8000-0000000000$i\", \"source\": \"$source\", \"start\": 0, \"end\": 0.25}"
done
video="{\"id\": \"00000000-0000-4000-8000-000000000001\", \"number\": 1, \"title\": \"t\", \"aspect\": \"9:16\", \"cuts\": [$cuts]}"
sed "s|\"videos\": \[\]|\"videos\": [$video]|" "$project/project.json" >"$work/with-video.json"
mv "$work/with-video.json" "$project/project.json"

old=0
new=0
measure "$murbo" --export "$project" V1 "$out" --fps 20
for ((i = 0; i < kills; i++)); do
    echo "an old file" >"$out"
    killed "$murbo" --export "$project" V1 "$out" --fps 20
    frames=$(ffprobe -v error -count_frames -select_streams v -show_entries stream=nb_read_frames -of csv=p=0 "$out" 2>/dev/null)
    if grep -aqx "an old file" "$out"; then
        old=$((old + 1))
    elif [ "$frames" = 40 ]; then
        new=$((new + 1))
    else
        fault "the movie is neither the old nor the new one"
    fi
    left=$(others "$work/out" out.mp4)
    [ -z "$left" ] || fault "left beside the movie: $left"
done
"$murbo" --summary "$project" >/dev/null || fault "the project no longer opens"
echo "$kills kills while exporting: $old times the old movie, $new times the new one"
[ $faults = 0 ]
