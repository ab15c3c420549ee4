# Sourced by ./run and ./test: installs what a bare Debian 12 lacks and keeps build/dev configured.
# shellcheck shell=bash

build_dir=build/dev
jobs=$(nproc 2>/dev/null || echo 2)

tools_to_build="build-essential cmake ninja-build ccache pkg-config git ca-certificates"
libraries="qt6-base-dev qt6-qpa-plugins libgtest-dev libbenchmark-dev libfmt-dev nlohmann-json3-dev libcli11-dev
  libsqlite3-dev mdbtools-dev libxlsxwriter-dev zlib1g-dev libminizip-dev libxcb1-dev libcairo2-dev libfontconfig-dev"
fonts_and_words="fonts-arphic-uming fonts-wqy-microhei fonts-liberation qt6-translations-l10n"
tools_to_test="xvfb xauth openbox poppler-utils cups-daemon cups-client bash-completion"
tools_to_package="appstream desktop-file-utils dpkg-dev file help2man lintian"
compiled_along="googletest libfmt-dev nlohmann-json3-dev libcli11-dev"

say() { printf '%s\n' "$*" >&2; }

missing_of() {
  local package
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || printf '%s ' "$package"
  done
}

# apt_get ARGS...: waits for another program that installs packages. By itself apt-get waits for the lock of dpkg and
# gives up at those of the lists and of the archives. What it has to say is told in the end.
apt_get() {
  local told longest=600 waiting=""
  local deadline=$((SECONDS + longest))
  until told=$($as_root env LC_ALL=C DEBIAN_FRONTEND=noninteractive \
    apt-get -qq -o DPkg::Lock::Timeout=$longest "$@" 2>&1 </dev/null); do
    if [ "$SECONDS" -ge "$deadline" ] || ! grep -q '^E: Could not get lock' <<<"$told"; then
      say "$told"
      return 1
    fi
    [ -n "$waiting" ] || say "Another program is installing packages; waiting for it."
    waiting=yes
    sleep 2
  done
  [ -z "$told" ] || say "$told"
}

# install PACKAGES...: as root or by sudo. Status 1 when neither is at hand; the line to run is told then. A failed
# download is told and gone over: the build says soon enough what it can't do without.
install() {
  command -v dpkg-query >/dev/null || { say "No Debian packages here; README.md lists what the build needs."; return 0; }
  local missing as_root=""
  missing=$(missing_of "$@")
  [ -n "$missing" ] || return 0
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null || ! { sudo -n true 2>/dev/null || [ -t 0 ]; }; then
      say "Packages are missing. Run as root:"
      say "  apt-get install --no-install-recommends $missing"
      return 1
    fi
    as_root="sudo"
  fi
  say "Installing $missing"
  # shellcheck disable=SC2086 # the lists are words
  { apt_get update && apt_get install -y --no-install-recommends $missing; } ||
    say "Not all packages could be installed; going on with what is there."
}

install_to_build() {
  # shellcheck disable=SC2086 # the lists are words
  install $tools_to_build $libraries $fonts_and_words
}

# configure [-DNAME=VALUE ...]: what CMake says is shown only when it fails.
configure() {
  cmake --preset dev "$@" >$build_dir.log 2>&1 || { cat $build_dir.log >&2; return 1; }
}

# When it was never done, or the presets changed; Ninja sees to all other changes.
configure_once() {
  if [ ! -e $build_dir/build.ninja ] || [ CMakePresets.json -nt $build_dir/build.ninja ]; then configure; fi
}

# build TARGETS...: silent unless something is done; what the compiler says goes to standard error.
build() {
  cmake --build $build_dir -j "$jobs" --target "$@" -- --quiet 2>&1 | { grep -v '^ninja: no work to do' >&2 || true; }
}
