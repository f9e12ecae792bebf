#!/usr/bin/env bash
# Small checks over the sources, each OK or FAIL with what to mend; ends with 1 where one failed.
#
#   packaging/check.sh [OPTION] [NAME…]   all of them, or those named
#
#   --quick          all but `tidy`, in a few seconds and without a build
#   --since COMMIT   `tidy` looks at the files that differ from there (else from the main branch), or are new
#   --all            `tidy` looks at every file
set -uo pipefail
cd "$(dirname "$0")/.."

all=no quick=no since=
case ${1:-} in
    --all) all=yes; shift ;;
    --quick) quick=yes; shift ;;
    --since) since=${2:?}; shift 2 ;;
esac

for tool in git clang-format python3; do
    command -v $tool >/dev/null || { echo "The checks need $tool, which is not installed."; exit 1; }
done
git rev-parse --verify -q HEAD >/dev/null || { echo "The checks look at what git keeps, and this is no git checkout."; exit 1; }

sources() { git ls-files --cached --others --exclude-standard "$@" | while read -r file; do [ ! -f "$file" ] || echo "$file"; done; }
ours() { sources '*.h' '*.cpp'; }
report() { [ -z "$1" ] || { printf '%s\n' "$1"; return 1; }; }

# ---------------------------------------------------------------------- checks --
check_format() { # every source is in the house's format (./dev format mends it)
    report "$(ours | xargs -r clang-format --dry-run -Werror 2>&1 | sed -n 's/^\([^:]*\):.*clang-format-violations.*/\1/p' | sort -u)"
}

check_includes() { # a room looks only into those beneath it
    report "$(ours | grep -E '^(platform|core|app)/' | xargs -r grep -H '^#include "' | tr -d '"' | awk '
        BEGIN {
            split("platform/base=0 platform/image/kernels=1 platform/image=1.5 " \
                  "platform/image/draw=1.6 platform/image/filters=1.7 " \
                  "platform/media=2 platform/vision=2 platform/text=2 platform/net=2 platform/store=2 " \
                  "core/model=3 core/model/package=3.1 core/model/edits=3.1 core/playbooks=4 " \
                  "core/intake=4.2 core/intake/transcription=4.1 core/intake/samples=4.1 " \
                  "core/render/plan=5 core/render/captions=6 core/render/footage=6 core/render/sound=6 " \
                  "core/render/stage=7 core/render=8 core/render/export=8.5 " \
                  "core/ai=9 core/mcp=10 app/options=10.5 app/mcp/bridge=10.6 app/editor/playback=10.8 app/editor/speaker=10.9 app/editor=11 " \
                  "app/editor/ai=11.1 app/editor/commands=11.2 app/editor/script=11.4 app/mcp=12 app/paid=12.5 app/headless=13 app/desktop/drawn=12.6 app/desktop/timeline=12.8 app/desktop/viewer=12.8 app/desktop/models=12.7 app/desktop/captions=12.75 app/desktop/transcript=12.85 app/desktop/inspector=12.9 " \
                  "app/desktop/access=12.9 app/desktop/settings=12.8 app/desktop/documents=12.8 app/desktop/footage=12.8 app/desktop/libraries=12.8 app/desktop/services=12.5 app/desktop/exports=12.95 app/desktop=13 app=14", rooms, " ")
            for (i in rooms) { split(rooms[i], pair, "="); level[pair[1]] = pair[2] }
        }
        function room(path) { sub("/[^/]*$", "", path); return path }
        {
            split($0, part, ":#include ")
            from = room(part[1]); to = room(part[2])
            if (!(from in level)) { print part[1] ": " from " is no room of the house"; next }
            if (!(to in level)) { print part[1] ": includes " part[2] ", which is in no room"; next }
            if (from != to && level[to] >= level[from]) print part[1] ": may not look into " to
        }')"
}

# Library headers may stand in a header only where no other room can see it.
check_libraries() { # headers of libraries stay inside the room that calls them
    report "$(ours | grep -E '^(platform|core|app)/' | xargs -r grep -HE '^ *#include [<"]' | awk '
        function room(path) { sub("/[^/]*$", "", path); return path }
        {
            file = $0; sub(":.*", "", file)
            included = $0; sub("^[^<\"]*[<\"]", "", included); sub("[>\"].*", "", included)
            if (included ~ /^(libav|libsw|pango|cairo|nlohmann|curl|hwy|opencv|ft2build|freetype|fontconfig|hb|jpeglib|turbojpeg|unicode|fmt)/ &&
                included != "nlohmann/json_fwd.hpp" && file ~ /\.h$/) holds[file] = included
            if (included ~ /^(platform|core|app)\//) { n++; from[n] = file; to[n] = included }
        }
        END {
            do { # a header that includes one that holds a library holds it too
                more = 0
                for (i = 1; i <= n; i++)
                    if (to[i] in holds && from[i] ~ /\.h$/ && !(from[i] in holds)) { holds[from[i]] = holds[to[i]]; more = 1 }
            } while (more)
            for (i = 1; i <= n; i++)
                if (to[i] in holds && room(from[i]) != room(to[i])) print from[i] ": gets <" holds[to[i]] "> by " to[i]
        }' | sort -u)"
}

check_lengths() { # no file is longer than 450 lines
    report "$(ours | xargs -r wc -l | awk '$2 != "total" && $1 > 450 { print $2 ": " $1 " lines" }')"
}

# Files named -inl.h are read once for each instruction set that they are compiled for.
check_headers() { # each header is read once
    report "$(ours | grep '\.h$' | grep -v -- '-inl\.h$' | while read -r file; do
        [ "$(grep -m1 -v '^ *$' "$file")" = "#pragma once" ] || echo "$file: does not begin with #pragma once"
    done)"
}

check_scripts() { # the shell scripts are well formed
    report "$({ sources '*.sh'; echo dev; echo .ci/run; } | while read -r file; do bash -n "$file" 2>&1; done)"
}

check_qml() { # the views are well formed (what they are bound to is known at run time alone: the tests load them)
    local lint=/usr/lib/qt6/bin/qmllint
    [ -x $lint ] || return 0
    report "$(sources '*.qml' | xargs -r $lint --unqualified disable --import disable --property disable --type disable \
        --deferred-property-id disable 2>&1 | grep -E '^(Warning|Error)')"
}

check_circles() { # files, folders and rooms include each other in one direction
    packaging/house.py circles
}

check_names() { # what a name stands for is found under that name
    packaging/house.py names
}

check_tests() { # a source has a test of its name, and no two tests share one
    packaging/house.py tests
}

check_tidy() { # clang-tidy finds no faults
    local base files
    command -v clang-tidy >/dev/null || { echo "clang-tidy is not installed"; return 1; }
    [ -f build/compile_commands.json ] || { echo "build/compile_commands.json is not there: ./dev build makes it"; return 1; }
    base=${since:-$(git merge-base HEAD origin/main 2>/dev/null || git rev-parse -q --verify HEAD~1 || git rev-parse HEAD)}
    # Where nothing differs there is no change to look at, but the whole.
    [ "$(git rev-parse "$base")" != "$(git rev-parse HEAD)" ] || [ -n "$(git status --porcelain -- '*.cpp')" ] || all=yes
    files=$(if [ $all = yes ]; then sources '*.cpp'; else { git diff --name-only "$base" -- '*.cpp'; git ls-files --others --exclude-standard '*.cpp'; } | sort -u; fi |
        grep -E '^(app|core|platform)/' | while read -r file; do [ ! -f "$file" ] || echo "$file"; done)
    [ -n "$files" ] || return 0
    # Clang can't read GCC's precompiled header; its plain text serves.
    mkdir -p build/tidy
    sed -E 's/ -Winvalid-pch//g; s/ -fpch-preprocess//g; s#([^ ]*)/cmake_pch\.hxx#build/tidy/precompiled.h#g' build/compile_commands.json |
        sed -E "s#-include build/tidy#-include $PWD/build/tidy#g" >build/tidy/compile_commands.json
    echo "#include \"$PWD/cmake/Precompiled.h\"" >build/tidy/precompiled.h
    report "$(xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/tidy <<<"$files" 2>/dev/null | grep -E 'error:|warning:' | sed "s#$PWD/##" | sort -u)"
}

# --------------------------------------------------------------------------- run --
names=("$@")
[ ${#names[@]} -gt 0 ] || mapfile -t names < <(sed -n 's/^check_\([a-z]*\)() {.*/\1/p' "$0" | if [ $quick = yes ]; then grep -v tidy; else cat; fi)
failed=0
for name in "${names[@]}"; do
    meaning=$(sed -n "s/^check_$name() { # //p" "$0")
    [ -n "$meaning" ] || { echo "There is no check $name."; exit 2; }
    if found=$("check_$name"); then
        printf 'OK    %-10s %s\n' "$name" "$meaning"
    else
        failed=1
        printf 'FAIL  %-10s %s\n' "$name" "$meaning"
        printf '%s\n' "$found" | sed 's/^/        /'
    fi
done
exit $failed
