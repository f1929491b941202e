#!/usr/bin/env bash
# includes.sh FOLDER: fails when an include in the sources of FOLDER points up the layers
# of the program, or when classes include each other in a circle.
set -euo pipefail
shopt -s globstar
cd "$1"

# One line an include: the file, and the file that it includes.
includes=$(grep -H '^ *# *include *"' -- **/*.{cpp,h} | sed -E 's/:.*"(.*)".*/ \1/')
[[ -n $includes ]]

found=$(
    awk '
        BEGIN { level["core"] = 1; level["data"] = 2; level["app"] = 3
                level["display"] = 4; level["forms"] = 5; level["main.cpp"] = 6 }
        {
            split($1, here, "/")
            split($2, there, "/")
            if (!(here[1] in level) || !(there[1] in level))
                print $1 ": \"" $2 "\" is in no layer"
            else if (level[there[1]] > level[here[1]])
                print $1 ": \"" $2 "\" points up"
        }' <<<"$includes"
    # The files of a class count as one, however they share the includes out.
    sed -E 's/(_unix|_win)?\.(cpp|h)( |$)/\3/g' <<<"$includes" | awk '$1 != $2' |
        { tsort 2>&1 >/dev/null || true; } | sed -E 's/^tsort: -:.*/These include each other:/; s/^tsort:/   /'
)
[[ -z $found ]] || { echo "$found"; exit 1; }
