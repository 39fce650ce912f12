#!/usr/bin/env bash
# Fails on an include that breaks the rule of the house: a room uses only rooms of lower floors, and
# only the rooms named here use a library. docs/architecture.md draws the house.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# The rooms of each floor, from the ground up.
floors=(
  "platform"
  "geometry textures"
  "primitives entities"
  "csg"
  "document"
  "dialogs views formats"
  "paint app"
  "desktop cli"
)

# What a room may use beside the project and the standard library.
libraries_of() {
  case "$1" in
    paint | desktop) echo "Q" ;;
    cli) echo "CLI/|nlohmann/" ;;
  esac
}

include='[[:space:]]*#[[:space:]]*include[[:space:]]*'
foreign='Q|CLI/|nlohmann/|gtest/|benchmark/'
status=0
below=""
known=" "
for floor in "${floors[@]}"; do
  for room in $floor; do
    known+="$room "
    # The project's own headers are included as "room/file.h"; ui_... are made from forms.
    if grep -rnE "$include\"" "src/$room" | grep -vE "$include\"((${below}${room})/|ui_)"; then
      echo "src/$room may include headers of these rooms only: ${below//|/ }$room"
      status=1
    fi
    libraries=$(libraries_of "$room")
    if grep -rnE "$include<($foreign)" "src/$room" |
      { [ -z "$libraries" ] && cat || grep -vE "$include<($libraries)"; }; then
      echo "src/$room uses a library that is not for it"
      status=1
    fi
  done
  below+="${floor// /|}|"
done

for folder in src/*/; do
  room=$(basename "$folder")
  [[ $known == *" $room "* ]] || { echo "src/$room stands on no floor of scripts/check_rooms.sh"; status=1; }
done

# Two headers of one name would be taken for one another.
twice=$(git -c safe.directory="$PWD" ls-files 'src/*.h' | xargs -n 1 basename | sort | uniq -d)
[ -z "$twice" ] || { echo "more than one header is called: $twice"; status=1; }
exit $status
