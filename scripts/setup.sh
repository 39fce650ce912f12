# Shared by run, test and .ci/run: the packages that the project needs, and how they get there.
# Meant to be sourced by bash, with the root of the project as the working directory.

packages_of() {
  case "$1" in
    build)
      echo g++ cmake ninja-build libcli11-dev nlohmann-json3-dev
      # The editor window, and what it needs at run time: icons are SVG, and text needs a font.
      echo qt6-base-dev libqt6svg6 fonts-dejavu-core
      ;;
    test) echo libgtest-dev ;;
    checks) echo clang clang-format clang-tidy libclang-rt-dev ;;
    bench) echo libbenchmark-dev ;;
  esac
}

say() { printf '%s\n' "zando: $*"; }

die() {
  printf '%s\n' "zando: $*" >&2
  exit 1
}

is_debian() {
  [ -r /etc/os-release ] || return 1
  case " $(. /etc/os-release && echo "${ID:-} ${ID_LIKE:-}") " in
    *" debian "* | *" ubuntu "*) command -v apt-get >/dev/null && command -v dpkg-query >/dev/null ;;
    *) return 1 ;;
  esac
}

# Runs a command as root. Asks for a password only when somebody is there to type it.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif ! command -v sudo >/dev/null; then
    return 1
  elif [ -t 0 ]; then
    sudo "$@"
  else
    sudo -n "$@"
  fi
}

can_become_root() {
  [ "$(id -u)" -eq 0 ] || { command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; }
}

is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

apt_get() {
  as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 apt-get -y -q \
    -o Acquire::Retries=3 -o DPkg::Lock::Timeout=120 "$@" </dev/null
}

apt_install() {
  mkdir -p build
  local log=build/setup.log
  say "installing $* (once; this can take a few minutes)"
  # A source that fails to update need not be the one that is wanted: the install decides.
  apt_get update >"$log" 2>&1 || true
  if ! apt_get install --no-install-recommends "$@" >>"$log" 2>&1; then
    tail -n 15 "$log" >&2
    die "apt-get could not install them. Is the network up? All of its output is in $log."
  fi
}

# install_sets SET...: everything in these package sets is there afterwards, or the script ends
# with a message. Without anything missing it neither uses the network nor needs to be root.
install_sets() {
  [ -z "${ZANDO_SKIP_SETUP:-}" ] || return 0
  local set package wanted=() missing=()
  for set in "$@"; do
    for package in $(packages_of "$set"); do wanted+=("$package"); done
  done

  if ! is_debian; then
    say "this is not Debian or Ubuntu, so nothing is installed for you. Needed, by their Debian names:"
    say "  ${wanted[*]}"
    command -v cmake >/dev/null && command -v ninja >/dev/null && command -v c++ >/dev/null ||
      die "cmake, ninja or a C++20 compiler is not there yet: install it, then call this again."
    return 0
  fi

  for package in "${wanted[@]}"; do
    is_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  can_become_root ||
    die "missing packages: ${missing[*]}
  Ask an administrator for   apt-get install ${missing[*]}
  or, when you have them from elsewhere, call this with ZANDO_SKIP_SETUP=1."
  apt_install "${missing[@]}"
}

has_german_locale() { locale -a 2>/dev/null | grep -qiE '^de_DE\.utf-?8$'; }

# The tests read and write levels under a German locale, where a comma is the decimal point.
install_german_locale() {
  [ -z "${ZANDO_SKIP_SETUP:-}" ] && is_debian || return 0
  ! has_german_locale || return 0
  if ! can_become_root; then
    say "the locale de_DE.UTF-8 is missing and cannot be made without root; its tests are skipped"
    return 0
  fi
  is_installed locales || apt_install locales
  as_root localedef -i de_DE -f UTF-8 de_DE.UTF-8 ||
    die "localedef could not make de_DE.UTF-8. Is there room in /usr/lib/locale?"
}

jobs_here() { nproc 2>/dev/null || getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2; }

# configure_and_build PRESET "TARGET..." [CMAKE ARGUMENT...]
configure_and_build() {
  local preset=$1 targets
  read -ra targets <<<"$2"
  shift 2
  mkdir -p build
  local log="build/configure-$preset.log"
  if ! cmake --preset "$preset" "$@" >"$log" 2>&1; then
    cat "$log" >&2
    die "CMake could not configure the build (preset $preset). If build/$preset is left over from
  another machine or compiler, remove that folder and call this again."
  fi
  say "building (preset $preset)"
  cmake --build "build/$preset" --target "${targets[@]}" --parallel "$(jobs_here)" ||
    die "the build failed; the first error above is the one to look at."
}
