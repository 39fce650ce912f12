#!/usr/bin/env bash
# Makes a room with a doorway in the running editor with the mouse alone (the keyboard only names
# the files), saves and exports it, and compares both files with what examples/doorway.zscript gives in
# zando-cli. Runs on a virtual display of its own.
#
#   scripts/mouse_walkthrough.sh [FOLDER]
#
# FOLDER, a temporary one when left out, gets room.3dz, room.MAP and pictures of the way.
set -euo pipefail
cd "$(dirname "$0")/.."

program=$(realpath -m build/release/bin/zando)
cli=$(realpath -m build/release/bin/zando-cli)
script=$PWD/examples/doorway.zscript

. scripts/virtual_desktop.sh

folder=$(realpath -m "${1:-$scratch/walkthrough}")
mkdir -p "$folder"
rm -f "$folder"/room.*

# ---- where things are in a main window of this size, on the screen

scale_tool=(233 95)
move_tool=(207 95)
reset_brush=(389 95)
add_to_world=(446 95)
subtract_from_world=(471 95)
use_grid=(365 64)
save=(95 64)
quick_bsp=(209 64)
view_menu=(116 38)
top_view=(150 196)
solid_render=(150 174)
file_menu=(40 38)
export_to_quake=(125 196)
middle_of_view=(380 346)

# ---- the mouse

click() {
  xdotool mousemove "$1" "$2"
  sleep 0.2
  xdotool click 1
  sleep 0.5
}

# drag RIGHT DOWN BUTTON...: from the middle of the view, in one go.
drag() {
  local right=$1 down=$2 button
  shift 2
  xdotool mousemove "${middle_of_view[@]}"
  sleep 0.2
  for button in "$@"; do xdotool mousedown "$button"; sleep 0.2; done
  xdotool mousemove_relative -- "$right" "$down"
  sleep 0.3
  for button in "$@"; do xdotool mouseup "$button"; sleep 0.2; done
  sleep 0.3
}

# name_file TITLE PATH: in the chooser of that title.
name_file() {
  dialog_appears "$1"
  xdotool type --delay 20 "$2"
  xdotool key Return
  sleep 0.7
}

picture() { import -window root -crop "${size[0]}x${size[1]}+20+30" +repage "$folder/$1.png"; }

# ---- the room

make_home
start_display
start_editor "$program"
click "${use_grid[@]}"
click "${scale_tool[@]}"
drag 400 0 1 3 # both buttons, all axes: from 128 units to 384
click "${add_to_world[@]}"
drag -100 0 1 3 # 320
click "${subtract_from_world[@]}"
click "${reset_brush[@]}"
click "${view_menu[@]}"
click "${top_view[@]}"
click "${move_tool[@]}"
drag 180 7 1 # the grid of 64 makes it 192 and 0
click "${subtract_from_world[@]}"
picture top
click "${quick_bsp[@]}"
click "${view_menu[@]}"
click "${solid_render[@]}"
picture solid
click "${save[@]}"
name_file 'Save As' "$folder/room"
click "${file_menu[@]}"
click "${export_to_quake[@]}"
name_file 'Export to Quake \(MAP\)' "$folder/room"
wait_for test -s "$folder/room.MAP" || die "nothing was exported"
stop_editor

# ---- the same without a hand

(cd "$folder" && "$cli" run "$script" expected.3dz && "$cli" export-map expected.3dz expected.map) >/dev/null
cmp "$folder/room.MAP" "$folder/expected.map" || die "the export differs from that of the script"
cmp "$folder/room.3dz" "$folder/expected.3dz" || die "the saved level differs from that of the script"
say "equal: $(grep -c '^{' "$folder/room.MAP") blocks, $(stat -c %s "$folder/room.MAP") bytes"
