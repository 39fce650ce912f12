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

. scripts/virtual_desktop.sh

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

create_cylinder() {
  start_editor "$program"
  keys alt+b p y
  dialog_appears 'Create Cylinder'
  shoot create_cylinder "$dialog"
}

entity_editor() {
  start_editor "$program" "$level"
  keys F10 Right Right Right Right e # both Edit and Entities begin with an E
  dialog=$(xdotool getactivewindow) # it has no title
  shoot entity_editor "$dialog"
}

four_views() {
  start_editor "$program" "$level"
  keys alt+v 4
  shoot four_views
}

view_menu() {
  start_editor "$program" "$level"
  keys alt+v
  shoot view_menu
}

tools_menu() {
  start_editor "$program" "$level"
  keys alt+v 4 alt+v t t Return # both Toolbar and Tools begin with a T
  shoot tools_menu
}

solid_view() {
  start_editor "$program" "$level"
  keys alt+w t
  # Both buttons and up: the camera rises out of the floor.
  xdotool mousemove 660 460 mousedown 1 mousedown 3 sleep 0.3 mousemove_relative -- 0 -24 sleep 0.3 \
    mouseup 3 mouseup 1
  shoot solid_view
}

textures() {
  cp examples/MYWAD.WAD examples/PALETTE.LMP "$scratch"
  start_editor "$program" "$level"
  keys alt+v b alt+w t # the browser, beside the level
  shoot textures
}

group_attributes() {
  start_editor "$program" "$level"
  keys alt+b g
  dialog_appears 'Group Attributes'
  keys Down Down Down
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
for picture in ${ONLY:-new_level create_box create_cylinder entity_editor four_views solid_view textures \
  view_menu tools_menu group_attributes about large_font dark_desktop}; do
  "$picture"
  stop_editor
done
