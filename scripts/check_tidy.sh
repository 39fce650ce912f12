#!/usr/bin/env bash
# check_tidy.sh BUILD: clang-tidy over all of src/, with the compile commands of the folder BUILD.
# The headers of the system take nearly all of its time, so the files of a room are read as one file
# where that compiles; a room in which two files give different things one name is read file by file.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=$PWD/$1
rooms=$build/tidy
mkdir -p "$rooms"

commands=$(grep -hE "^ *\"command\": .* -c $PWD/src/[a-z]+/[a-z0-9_]+\.cpp" "$build/compile_commands.json")
[ -n "$commands" ] || { echo "no compile commands of src/ in $build"; exit 1; }
sources() { grep -oE " -c $PWD/src/$1/[a-z0-9_]+\.cpp" <<<"$commands" | cut -d ' ' -f 3; }

# The room's one file, with the command of its first source.
write_room() {
  local room=$1 first
  first=$(sources "$room" | head -n 1)
  sources "$room" | sed -E "s|^$PWD/src/(.*)|#include \"\1\"|" >"$rooms/$room.cpp"
  printf '{"directory": "%s", "file": "%s",\n' "$build" "$rooms/$room.cpp"
  grep -F -- " -c $first\"" <<<"$commands" | sed -E "s|-o [^ ]+ -c $first\",?|-c $rooms/$room.cpp\"}|"
}

check_room() {
  local room=$1 log=$rooms/$1.log
  # An include of a .cpp is what these files are for.
  clang-tidy --quiet -p "$rooms" --config-file=.clang-tidy --checks=-bugprone-suspicious-include \
    "$rooms/$room.cpp" >"$log" 2>&1 && return
  if ! grep -q 'clang-diagnostic-error' "$log"; then
    cat "$log"
    return 1
  fi
  sources "$room" | xargs -n 1 clang-tidy --quiet -p "$build"
}

names=$(sed -E "s|.* -c $PWD/src/([a-z]+)/.*|\1|" <<<"$commands" | sort -u)
{
  echo '['
  separator=''
  for room in $names; do
    printf '%s' "$separator"
    write_room "$room"
    separator=','
  done
  echo ']'
} >"$rooms/compile_commands.json"

# A few rooms at a time: their names are handed out to as many workers as there are processors.
export -f check_room sources
export build rooms commands PWD
xargs -n 1 -P "$(nproc)" bash -euo pipefail -c 'check_room "$1"' room <<<"$names"
