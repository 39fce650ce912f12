#!/usr/bin/env bash
# Makes the pictures of the user guide from the running editor, on a virtual display of its own.
#
#   scripts/screenshots.sh [PROGRAM [FOLDER]]
#
# PROGRAM is build/release/bin/zando and FOLDER docs/user-guide/images when they are left out.
# Neither the display nor the settings of the user are touched. ONLY=name makes just one picture.
set -euo pipefail
cd "$(dirname "$0")/.."

program=$(realpath -m "${1:-build/release/bin/zando}")
folder=$(realpath -m "${2:-docs/user-guide/images}")
level=$PWD/examples/keep.3dz
size=(1280 820)
seconds=20  # longest wait for anything to appear

say() { printf '%s\n' "screenshots: $*" >&2; }
die() { say "$@"; exit 1; }

# ---- what has to be there

missing=()
need() { command -v "$1" >/dev/null || missing+=("$2"); }
need Xvfb xvfb
need openbox openbox
need xdotool xdotool
need import imagemagick
need convert imagemagick
need identify imagemagick
[ ${#missing[@]} -eq 0 ] ||
  die "missing: $(printf '%s\n' "${missing[@]}" | sort -u | xargs); install these packages"
[ -x "$program" ] || die "$program is not there; build it first: cmake --build build/release --target zando"

# ---- a display and a home for this run only

scratch=$(mktemp -d)
display_pid='' manager_pid='' editor_pid=''

end() {
  [ -n "$1" ] || return 0
  kill "$1" 2>/dev/null || true
  wait "$1" 2>/dev/null || true
}

clean_up() {
  end "$editor_pid"
  end "$manager_pid"
  end "$display_pid"
  rm -rf "$scratch"
}
trap clean_up EXIT
trap 'exit 1' INT TERM HUP

# wait_for COMMAND...: until it succeeds; fails when that takes too long.
wait_for() {
  local end=$((SECONDS + seconds))
  until "$@" >/dev/null 2>&1; do
    [ "$SECONDS" -lt "$end" ] || return 1
    sleep 0.1
  done
}

start_display() {
  # The server takes a number that is free and tells it on descriptor 3.
  Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp 3>"$scratch/display" 2>"$scratch/xvfb.log" &
  display_pid=$!
  wait_for test -s "$scratch/display" || die "Xvfb did not start: $(cat "$scratch/xvfb.log")"
  DISPLAY=:$(cat "$scratch/display")
  export DISPLAY
  openbox >/dev/null 2>&1 &
  manager_pid=$!
  wait_for xdotool getwindowfocus get_desktop || die "openbox did not start"
}

make_home() {
  mkdir -p "$scratch/home/.config" "$scratch/home/.cache" "$scratch/run"
  chmod 700 "$scratch/run"
  export HOME=$scratch/home
  export XDG_CONFIG_HOME=$HOME/.config XDG_CACHE_HOME=$HOME/.cache XDG_RUNTIME_DIR=$scratch/run
  export XDG_CONFIG_DIRS=$HOME LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb
  # The looks of the desktop that the script was called from must not leak into the pictures.
  unset WAYLAND_DISPLAY XDG_CURRENT_DESKTOP KDE_SESSION_VERSION KDE_FULL_SESSION DESKTOP_SESSION
  unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR QT_FONT_DPI
}

# Qt takes its colours from this file when it is told that the desktop is KDE.
write_dark_colors() {
  cat >"$XDG_CONFIG_HOME/kdeglobals" <<'COLORS'
[KDE]
widgetStyle=fusion
[Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
ForegroundInactive=161,169,177
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=252,252,252
ForegroundInactive=161,169,177
ForegroundLink=29,153,243
ForegroundVisited=155,89,182
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
COLORS
}
dark_looks=(QT_QPA_PLATFORMTHEME=kde XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5)

# ---- the editor

# start_editor [NAME=VALUE...] [FILE]: leaves the main window in $window, settled and in front.
start_editor() {
  env -C "$scratch" "$@" 2>"$scratch/editor.log" &
  editor_pid=$!
  wait_for find_main_window || die "the editor did not open: $(cat "$scratch/editor.log")"
  xdotool windowsize --sync "$window" "${size[@]}" windowmove "$window" 20 30
  # The start picture hides by itself after two seconds, and would swallow the first key.
  wait_for no_start_picture || die "the start picture stays"
  xdotool windowactivate --sync "$window" mousemove 1590 990
  sleep 0.5
}

windows_of_editor() { xdotool search --onlyvisible --pid "$editor_pid" 2>/dev/null; }

# By its title: the start picture is a window, too, and without one of this kind.
find_main_window() {
  window=$(xdotool search --onlyvisible --name '^ZANDO - ' 2>/dev/null | head -n 1)
  [ -n "$window" ]
}

no_start_picture() { [ "$(windows_of_editor | wc -l)" -eq 1 ]; }

stop_editor() {
  end "$editor_pid"
  editor_pid=''
}

# keys KEY...: one after the other, with time for menus to open.
keys() {
  local key
  for key in "$@"; do
    xdotool key "$key"
    sleep 0.4
  done
}

# dialog_appears TITLE: leaves its window in $dialog.
dialog_appears() {
  wait_for xdotool search --onlyvisible --name "^$1\$" || die "no dialog '$1'"
  dialog=$(xdotool search --onlyvisible --name "^$1\$" | tail -n 1)
  sleep 0.5
}

# shoot NAME [WINDOW]: what the screen shows where the window is, its frame and menus over it
# included.
shoot() {
  sleep 0.6
  import -screen -frame -window "${2:-$window}" "$scratch/$1.png"
  # Flat colours: a palette loses nothing to the eye and half of the bytes.
  convert "$scratch/$1.png" +repage +dither -colors 96 -strip -define png:compression-level=9 \
    -define png:exclude-chunks=date,time "PNG8:$folder/$1.png"
  say "$1.png, $(identify -format '%wx%h' "$folder/$1.png"), $(stat -c %s "$folder/$1.png") bytes"
}

# ---- the pictures

new_level() {
  start_editor "$program"
  shoot new_level
}

create_box() {
  start_editor "$program"
  keys alt+b p c
  dialog_appears 'Create Box'
  shoot create_box "$dialog"
}

four_views() {
  start_editor "$program" "$level"
  keys alt+v 4
  keys alt+v Down Down Down Return # 3D Wireframe, for the view that shows nothing but marks
  shoot four_views
}

view_menu() {
  start_editor "$program" "$level"
  keys alt+v
  shoot view_menu
}

tools_menu() {
  start_editor "$program" "$level"
  keys alt+v 4 alt+v t t # both Toolbar and Tools begin with a T
  shoot tools_menu
}

group_attributes() {
  start_editor "$program" "$level"
  keys alt+b g
  dialog_appears 'Group Attributes'
  keys Down Down
  shoot group_attributes "$dialog"
}

about() {
  start_editor "$program"
  keys alt+h a
  dialog_appears 'About.*'
  shoot about "$dialog"
}

large_font() {
  start_editor QT_FONT_DPI=144 "$program" "$level"
  keys alt+v 4
  shoot large_font
}

dark_desktop() {
  write_dark_colors
  start_editor "${dark_looks[@]}" "$program" "$level"
  keys alt+v 4
  shoot dark_desktop
}

make_home
start_display
mkdir -p "$folder"
for picture in ${ONLY:-new_level create_box four_views view_menu tools_menu group_attributes about \
  large_font dark_desktop}; do
  "$picture"
  stop_editor
done
