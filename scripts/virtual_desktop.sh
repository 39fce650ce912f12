# The editor on a virtual display of its own, for scripts that work in it. Source this after setting
# `program`; neither the display nor the settings of the user are touched. Needs bash.

size=(1280 820)
seconds=20  # longest wait for anything to appear

say() { printf '%s\n' "$(basename "$0"): $*" >&2; }
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
