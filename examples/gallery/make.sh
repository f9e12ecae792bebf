#!/usr/bin/env bash
# Contact sheets of all that playbooks can do, over the recording of the first Short and any footage named.
#
#   make.sh PROGRAM RECORDING OUT [FOOTAGE…]    PROGRAM is the gallery; RECORDING is as record.sh makes it;
#                                               FOOTAGE is FILE@SECONDS, further @CONTENT@FACE, boxes as x,y,w,h
set -euo pipefail
[ $# -ge 3 ] || { sed -n '2,${/^#/!q; s/^# \{0,1\}//p}' "$0"; exit 2; }
art=$(cd "$(dirname "$0")" && pwd)/../first-short/art
program=$1 recording=$2 out=$3
shift 3
mkdir -p "$out"
ffmpeg -hide_banner -loglevel error -nostdin -y -i "$art/feather.svg" -vf scale=512:-1:flags=lanczos -frames:v 1 "$out/picture.png"
"$program" "$out" "$out/picture.png" "$recording@17@0,0,0.58,1@0.5845,0.387,0.411,0.606" "$@"
