#!/usr/bin/env bash
# Makes a stream recording to try Murbo with: a game, a face box, a voice, and the markers that the streamer
# set. Takes some twenty seconds.
#
#   record.sh OUT    writes OUT/<stem>.mp4, OUT/<stem>.csv (markers), OUT/lines.tsv (what is said, and when),
#                    and the sounds OUT/music.m4a, OUT/whoosh.wav, OUT/cheer.wav
set -euo pipefail
[ $# = 1 ] || { sed -n '2,${/^#/!q; s/^# \{0,1\}//p}' "$0"; exit 2; }
art=$(cd "$(dirname "$0")/art" && pwd)
out=$1
mkdir -p "$out"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

seconds=40
jump=21.6                      # the feather is caught then
stem="2026-11-21 20-15-00"
rate=48000
run() { ffmpeg -hide_banner -loglevel error -nostdin -y "$@"; }

# ------------------------------------------------------------------ the voice --
# When each sentence begins, how fast and how high it is spoken, as spoken, and as written where that differs.
sentences=(
    "1.0|160|52|Hello everyone, welcome back to the mountain run.|"
    "5.6|165|50|I have one heart left, so no mistakes today.|"
    "10.2|170|58|Wait! Is that a golden feather up there?|Wait! Is that a golden feather up there? 👀"
    "14.6|165|48|Nobody has ever made that jump.|"
    "18.3|150|52|Okay. Three, two, one.|"
    "22.5|185|72|Yes! I actually got it!|"
    "25.8|180|64|Chat, did you see that? Clip it!|Chat, did you see that? Clip it! 🔥"
    "30.4|160|54|Best run of my life.|"
    "33.2|150|52|Thank you all! cob coon crub.|Thank you all! ขอบคุณครับ 🎉"
)
inputs=()
places=""
mixed=""
: >"$out/lines.tsv"
for i in "${!sentences[@]}"; do
    IFS='|' read -r start speed pitch spoken written <<<"${sentences[i]}"
    espeak-ng -v en-us -s "$speed" -p "$pitch" -w "$work/raw.wav" "$spoken"
    run -i "$work/raw.wav" -af "silenceremove=1:0:-50dB,areverse,silenceremove=1:0:-50dB,areverse,highpass=90,acompressor=threshold=-22dB:ratio=3:makeup=4dB,volume=5dB,alimiter=limit=0.8:level=false" \
        -ar $rate -ac 1 "$work/s$i.wav"
    samples=$((($(stat -c %s "$work/s$i.wav") - 78) / 2))
    awk -v a="$start" -v n="$samples" -v r=$rate -v t="${written:-$spoken}" \
        'BEGIN { printf "%.2f\t%.2f\t%s\n", a, a + n / r, t }' >>"$out/lines.tsv"
    inputs+=(-i "$work/s$i.wav")
    places+="[$i]adelay=$(awk -v a="$start" 'BEGIN { printf "%d", a * 1000 }')[d$i];"
    mixed+="[d$i]"
done
run "${inputs[@]}" -filter_complex "$places${mixed}amix=inputs=${#sentences[@]}:normalize=0,apad=whole_dur=$seconds,atrim=duration=$seconds" \
    -ar $rate -ac 1 "$work/voice.wav"

# ----------------------------------------------------------------- the sounds --
chord="(sin(2*PI*t*R)+.6*sin(2*PI*t*R*1.2599)+.5*sin(2*PI*t*R*1.4983))"
root="220*pow(2,(0-4*between(mod(t,8),2,4)-9*between(mod(t,8),4,6)-2*between(mod(t,8),6,8))/12)"
arp="sin(2*PI*t*R*2*pow(2,(4*mod(floor(t*4),2)+7*mod(floor(t*2),2))/12))*exp(-7*mod(t,.25))"
kick="sin(2*PI*(50*mod(t,.5)+9*(1-exp(-30*mod(t,.5)))))*exp(-9*mod(t,.5))"
hat="(random(0)-.5)*exp(-60*mod(t+.25,.5))"
run -f lavfi -i "aevalsrc=exprs='${chord//R/($root)}*.05+${arp//R/($root)}*.08+$kick*.22+$hat*.05':s=$rate:d=24" \
    -af "aecho=0.8:0.5:180:0.25,lowpass=9000,volume=7dB,alimiter=limit=0.8:level=false,afade=t=in:d=0.3" -ac 2 -c:a aac -b:a 160k "$out/music.m4a"
run -f lavfi -i "anoisesrc=color=pink:amplitude=0.7:seed=7:r=$rate:d=0.7" \
    -af "highpass=400,afade=t=in:d=0.45:curve=exp,afade=t=out:st=0.45:d=0.25" "$out/whoosh.wav"
run -f lavfi -i "aevalsrc=exprs='(sin(2*PI*t*1046.5)*lt(t,.12)+sin(2*PI*t*1318.5)*between(t,.12,.24)+sin(2*PI*t*1568)*between(t,.24,.36)+sin(2*PI*t*2093)*gte(t,.36))*exp(-3*max(t-.36,0))*.35':s=$rate:d=1.6" \
    -af "aecho=0.8:0.6:120:0.3" "$out/cheer.wav"
run -i "$work/voice.wav" -i "$out/cheer.wav" \
    -f lavfi -i "anoisesrc=color=pink:amplitude=0.004:seed=3:r=$rate:d=$seconds" \
    -filter_complex "[1]adelay=$(awk -v j=$jump 'BEGIN { printf "%d", j * 1000 }'),volume=0.5[c];[0][c][2]amix=inputs=3:normalize=0:duration=first,alimiter=limit=0.95:level=false" \
    -ac 2 "$work/sound.wav"

# ------------------------------------------------------------------- the face --
mouths=(
    '<path d="M366 418 Q403 436 440 418" stroke="#a0443f" stroke-width="9" fill="none" stroke-linecap="round"/>'
    '<path d="M370 414 Q403 442 436 414 Q403 406 370 414Z" fill="#7a1f3a"/>'
    '<path d="M360 410 Q403 466 446 410 Q403 398 360 410Z" fill="#7a1f3a"/><path d="M372 409 Q403 420 434 409 Q403 400 372 409Z" fill="#fff"/>'
    '<path d="M350 402 Q352 470 403 472 Q454 470 456 402 Q403 388 350 402Z" fill="#7a1f3a"/><path d="M362 401 Q403 416 444 401 Q403 390 362 401Z" fill="#fff"/><ellipse cx="403" cy="456" rx="28" ry="13" fill="#ff7b86"/>'
)
open='<g fill="#fff"><ellipse cx="346" cy="322" rx="25" ry="29"/><ellipse cx="460" cy="322" rx="25" ry="29"/></g><circle cx="342" cy="326" r="16" fill="#4b2a1f"/><circle cx="456" cy="326" r="16" fill="#4b2a1f"/><g fill="#fff"><circle cx="347" cy="320" r="5"/><circle cx="461" cy="320" r="5"/></g>'
shut='<path d="M322 326 Q346 344 370 326 M436 326 Q460 344 484 326" stroke="#2b1a4a" stroke-width="8" fill="none" stroke-linecap="round"/>'
brows='<path d="M318 HIGH Q346 TOP 372 HIGH M434 HIGH Q460 TOP 488 HIGH" stroke="#2b1a4a" stroke-width="10" fill="none" stroke-linecap="round"/>'
poses=("rotate(0 403 520)" "rotate(-2.2 403 520)" "rotate(2.2 403 520)" "translate(-6 5) rotate(-3.6 403 520)" "translate(6 5) rotate(3.6 403 520)" "translate(0 -7)")

draw_face() { # NAME MOUTH EYES POSE
    local high=274 top=258
    [ "$2" != 3 ] || { high=262; top=240; }
    local lids=${brows//HIGH/$high}
    awk -v mouth="${mouths[$2]}" -v eyes="$3${lids//TOP/$top}" -v head="$4" '
        /<!--/ { next }
        { sub(/^ *MOUTH$/, mouth); sub(/^ *EYES$/, eyes); sub(/"HEAD"/, "\"" head "\""); print }' \
        "$art/face.svg" >"$work/$1.svg"
}
faces=()
for pose in "${!poses[@]}"; do
    for mouth in 0 1 2 3 blink; do
        eyes=$open
        shape=$mouth
        [ "$mouth" != blink ] || { eyes=$shut; shape=0; }
        draw_face "f$mouth.$pose" "$shape" "$eyes" "${poses[pose]}"
        faces+=("f$mouth.$pose")
    done
done
picture="scale=out_color_matrix=bt709:out_range=tv,format=yuv420p"
for face in "${faces[@]}"; do echo "$face"; done |
    xargs -P 2 -I{} ffmpeg -hide_banner -loglevel error -nostdin -y -i "$work/{}.svg" -vf "$picture" -frames:v 1 -f rawvideo "$work/{}.yuv"

# The mouth follows the voice's loudness, 15 times a second.
run -i "$work/voice.wav" -af "asetnsamples=$((rate / 15)),astats=metadata=1:reset=1:measure_perchannel=none,ametadata=print:key=lavfi.astats.Overall.RMS_level:file=$work/loudness.txt" -f null -
awk -F= -v want=$((seconds * 15)) -v at="$work/" '
    /RMS_level=/ { level[n++] = ($2 ~ /inf|nan/) ? -120 : $2 + 0 }
    END {
        for (i = 0; i < want; i++) {
            now = i < n ? level[i] : -120
            talking = 0
            for (j = i - 5; j <= i + 5; j++) if (j >= 0 && j < n && level[j] > -40) talking = 1
            seed = (seed * 7621 + 1) % 32768
            if (talking && i % 4 == 0) pose = int(seed / 64) % 6
            if (!talking) pose = 0
            mouth = now < -40 ? 0 : now < -22 ? 1 : now < -15 ? 2 : 3
            if (mouth == 0 && i % 47 < 2) mouth = "blink"
            print at "f" mouth "." pose ".yuv"
        }
    }' "$work/loudness.txt" >"$work/faces.txt"

# ------------------------------------------------------------------- the game --
for step in 1 2; do
    turns=$([ $step = 1 ] && echo "-38 34" || echo "30 -34")
    sed -e "s/rotate(LEFT/rotate(${turns% *}/;s/rotate(RIGHT/rotate(${turns#* }/" "$art/runner.svg" >"$work/runner$step.svg"
done
sed -e 's/SCORE/012 400/g;s/"GOLD"/"#3a2a5f"/' "$art/hud.svg" >"$work/hud1.svg"
sed -e 's/SCORE/062 400/g;s/"GOLD"/"#ffd23f"/' "$art/hud.svg" >"$work/hud2.svg"

still() { echo "scale=out_color_matrix=bt709:out_range=tv,format=gbrap,unpremultiply=inplace=1,scale=out_color_matrix=bt709:out_range=tv,format=yuva420p,loop=-1:1,setpts=N/30/TB"; }
hop="200*max(0,1-pow((mod(t-2.36+2.909,5.818)-2.909)/.45,2))" # over the crate, once a round of the ground
leap="290*max(0,1-pow((t-$jump)/.8,2))"
height="596+5*sin(t*14)-max($hop,$leap)"
graph="[0]$picture,loop=-1:1,setpts=N/30/TB,crop=1920:1080:x='t*24':y=0[sky];"
graph+="[1]$(still),crop=1920:560:x='mod(t*90,1920)'[hills];[2]$(still),crop=1920:420:x='mod(t*330,1920)'[ground];"
graph+="[3]$(still)[step1];[4]$(still)[step2];[5]$(still)[feather];[6]$(still)[burst];[7]$(still)[hud1];[8]$(still)[hud2];"
graph+="[sky][hills]overlay=0:500[a];[a][ground]overlay=0:660[b];"
graph+="[b][feather]overlay=x='500+($jump-t)*330':y='280+14*sin(t*3)':enable='between(t,$jump-5,$jump)'[c];"
graph+="[c][step1]overlay=x=460:y='$height':enable='lt(mod(t,.26),.13)'[d];[d][step2]overlay=x=460:y='$height':enable='gte(mod(t,.26),.13)'[e];"
graph+="[e][burst]overlay=x=220:y=50:enable='between(t,$jump,$jump+.45)'[f];"
graph+="[f][hud1]overlay=320:130:enable='lt(t,$jump)'[g];[g][hud2]overlay=320:130:enable='gte(t,$jump)'[h];"
graph+="[h]lutyuv=y='min(235,val*.5+130)':enable='between(t,$jump,$jump+.1)'[i];"
graph+="[9]fps=30[face];[i][face]overlay=x=1114:y=410:eof_action=repeat,trim=duration=$seconds,setsar=1[picture]"
xargs cat <"$work/faces.txt" | ffmpeg -hide_banner -loglevel error -y \
    -i "$art/sky.svg" -i "$art/hills.svg" -i "$art/ground.svg" -i "$work/runner1.svg" -i "$work/runner2.svg" \
    -i "$art/feather.svg" -i "$art/burst.svg" -i "$work/hud1.svg" -i "$work/hud2.svg" \
    -f rawvideo -pix_fmt yuv420p -s 806x670 -framerate 15 -i pipe:0 -i "$work/sound.wav" \
    -filter_complex "$graph" -map '[picture]' -map 10:a -t $seconds -r 30 \
    -c:v libx264 -preset superfast -crf 21 -g 250 -pix_fmt yuv420p \
    -colorspace bt709 -color_primaries bt709 -color_trc bt709 -color_range tv \
    -c:a aac -b:a 160k "$out/$stem.mp4"

printf 'time,label\n0:00:11.5,"feather, up high"\n0:00:24.0,CAUGHT IT\n' >"$out/$stem.csv"
