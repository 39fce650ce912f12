#!/usr/bin/env bash
# Fails on an include that breaks the rule of the house: rooms use only rooms below them, and the
# core uses the standard library only. docs/architecture.md draws the rooms.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

allowed_rooms() {
  case "$1" in
    platform) echo "platform" ;;
    platform/qt) echo "platform geometry csg entities primitives textures document formats views app" ;;
    geometry) echo "platform geometry" ;;
    csg) echo "platform geometry csg" ;;
    textures) echo "platform textures" ;;
    entities) echo "platform geometry entities" ;;
    primitives) echo "platform geometry primitives" ;;
    document) echo "platform geometry csg entities primitives textures document" ;;
    formats) echo "platform geometry csg entities primitives textures document formats" ;;
    views) echo "platform geometry csg entities primitives textures document views" ;;
    app) echo "platform geometry csg entities primitives textures document formats views app" ;;
    cli) echo "platform platform/qt geometry csg entities primitives textures document formats views cli" ;;
    *) return 1 ;;
  esac
}

include='[[:space:]]*#[[:space:]]*include[[:space:]]*'
status=0
for folder in src/*/ src/platform/qt/; do
  room=${folder#src/}
  room=${room%/}
  if ! allowed=$(allowed_rooms "$room"); then
    echo "src/$room is not in scripts/check_rooms.sh: say there which rooms it may use"
    status=1
    continue
  fi
  elsewhere=()
  [ "$room" != platform ] || elsewhere=(--exclude-dir=qt)
  # The project's own headers are included as "room/file.h".
  if grep -rnE "$include\"" "$folder" "${elsewhere[@]}" | grep -vE "$include\"(${allowed// /|})/"; then
    echo "src/$room may include headers of these rooms only: $allowed"
    status=1
  fi
  if [ "$room" != cli ] && [ "$room" != platform/qt ] &&
    grep -rnE "$include<(Q|CLI/|nlohmann/|gtest/|benchmark/)" "$folder" "${elsewhere[@]}"; then
    echo "src/$room belongs to zando_core, which uses the standard library only"
    status=1
  fi
done
exit $status
