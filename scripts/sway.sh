# A Wayland compositor with two screens and no hardware, for scripts/desktops, which has
# tests/e2e/desktop.sh source this. It refuses to run as root.
((EUID != 0)) || as_user=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
cat >"$place/sway" <<END
output HEADLESS-1 resolution 1280x720 position 0 0
output HEADLESS-2 resolution 1920x1080 position 1280 0
exec env | grep -E '^(DISPLAY|WAYLAND_DISPLAY|SWAYSOCK)=' >$place/tmp/session
END
((EUID != 0)) || chown -R nobody "$place"
env -i "${quiet_place[@]}" WLR_BACKENDS=headless WLR_HEADLESS_OUTPUTS=2 WLR_RENDERER=pixman \
    "${as_user[@]}" sway --config "$place/sway" >"$place/display.log" 2>&1 &
display_processes=($!)
within_patience "a desktop" test -s "$place/tmp/session"
mapfile -t session <"$place/tmp/session"
export "${session[@]}" XDG_RUNTIME_DIR="$place/runtime"
wtype -s 1000000 & # a keyboard that stays plugged in
display_processes+=($!)
photograph_screen() { grim -o "HEADLESS-$1" "$2"; }
turned_to() { swaymsg "[title=\"^$1\"] focus"; } >/dev/null
strike() { wtype -k "$1"; }
