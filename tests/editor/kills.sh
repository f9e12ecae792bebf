#!/usr/bin/env bash
# Kills sessions at random moments of their scripts, and looks at what is left: a project that opens, and holds
# every command that was answered.
#
#   tests/editor/kills.sh PROGRAM [N]    N kills, 10 without a number; ends with 1 where one did harm
set -uo pipefail
murbo=$(realpath "$1")
kills=${2:-10}
commands=120
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home XDG_CONFIG_HOME=$work/config
mkdir -p "$HOME"
cd "$work"

faults=0
fault() { echo "fault: $*"; faults=$((faults + 1)); }

ffmpeg -nostdin -loglevel error -f lavfi -i testsrc2=s=320x180:r=25:d=2 -f lavfi -i sine=d=2 \
    -c:v libx264 -preset ultrafast -c:a aac -shortest a.mp4
"$murbo" --new whole.mbproj
"$murbo" --add-files whole.mbproj a.mp4 >/dev/null

# Each second command changes project.json, each other one a transcript. Their names say which they are.
{
    echo '["set","heldSource","a.mp4"]'
    echo '["set","range",[0,1]]'
    for ((i = 1; i <= commands; i += 2)); do
        echo "[\"newVideo\",\"9:16\",\"made $i.\"]"
        echo "[\"addNote\",\"made $((i + 1)).\"]"
    done
} >lines

run() { # whether every command that was answered is there, and at most the one that was under way beside them
    local answered there
    answered=$(grep -c '"step"' answers)
    there=$(cat p.mbproj/project.json p.mbproj/transcripts/*.json 2>/dev/null | grep -oE '"made [0-9]+\."' | sort -u | wc -l)
    [ "$there" = "$answered" ] || [ "$there" = $((answered + 1)) ] || fault "$answered were answered, $there are there"
    for ((i = 1; i <= answered; i++)); do
        grep -q "\"made $i\.\"" p.mbproj/project.json p.mbproj/transcripts/*.json || fault "the answered $i is lost"
    done
    total=$((total + answered))
}

cp -r whole.mbproj p.mbproj
start=$(date +%s%N)
"$murbo" --script p.mbproj lines >answers || fault "the script does not even run"
spent=$(($(date +%s%N) - start))
total=0
run
[ $total = $commands ] || fault "only $total of $commands commands were made"

total=0
for ((count = 0; count < kills; count++)); do
    rm -rf p.mbproj
    cp -r whole.mbproj p.mbproj
    "$murbo" --script p.mbproj lines >answers 2>/dev/null &
    sleep "$(awk -v most="$spent" -v part="$RANDOM" 'BEGIN { print most / 1e9 * 1.1 * part / 32768 }')"
    kill -KILL $! 2>/dev/null
    wait $! 2>/dev/null
    echo '["undo"]' | "$murbo" --script p.mbproj >opened || fault "the project no longer opens: $(cat opened)"
    echo '["redo"]' | "$murbo" --script p.mbproj >/dev/null
    run
done
echo "$kills kills: $total answered commands, $faults faults"
[ $faults = 0 ]
