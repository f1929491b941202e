#!/bin/sh
# Adds Rankelo to this user's menu; with --remove, takes it out again. The program itself stays
# where it was unpacked, with the quiz beside it.
set -eu

id=io.github.rankelo.Rankelo
here=$(cd "$(dirname "$0")" && pwd)
data=${XDG_DATA_HOME:-$HOME/.local/share}
entry=$data/applications/$id.desktop

refresh() {
    if command -v update-desktop-database >/dev/null; then
        update-desktop-database -q "$data/applications" || true
    fi
}

case ${1:-} in
'')
    # In a menu entry, " ` $ and \ in a path take a backslash, every backslash is doubled once
    # more, and % is written twice.
    program=$(printf '%s' "$here/Rankelo" | sed 's/[\\"`$]/\\&/g; s/\\/\\\\/g; s/%/%%/g')
    folder=$(printf '%s' "$here" | sed 's/\\/\\\\/g')
    mkdir -p "$data/applications"
    while IFS= read -r line; do
        case $line in
        Exec=*) printf 'Exec="%s"\nPath=%s\n' "$program" "$folder" ;;
        *) printf '%s\n' "$line" ;;
        esac
    done <"$here/$id.desktop" >"$entry"
    for icon in "$here"/icons/*.png; do
        size=$(basename "$icon" .png)
        place=$data/icons/hicolor/${size}x$size/apps
        mkdir -p "$place"
        cp "$icon" "$place/$id.png"
    done
    refresh
    echo "Rankelo is in your menu now. To take it out again: $0 --remove"
    ;;
--remove)
    rm -f "$entry" "$data"/icons/hicolor/*/apps/$id.png
    refresh
    echo "Rankelo is out of your menu. The folder $here is untouched."
    ;;
*)
    echo "usage: $0 [--remove]" >&2
    exit 2
    ;;
esac
