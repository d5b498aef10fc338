# Asks dpkg what is missing and installs only that, as root or through sudo. To be sourced.

packages_build="g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libproj-dev libcurl4-openssl-dev libarchive-dev zlib1g-dev picojson-dev libeigen3-dev"
packages_test="git poppler-utils libgtest-dev libgmock-dev locales python3 openssl clang-format fonts-ipafont-gothic qt6-translations-l10n xvfb xauth openbox xdotool dbus at-spi2-core python3-gi gir1.2-atspi-2.0 imagemagick desktop-file-utils libglib2.0-bin shared-mime-info xdg-utils"
packages_package="debhelper dpkg-dev debootstrap lintian appstream desktop-file-utils"
packages_bench="libbenchmark-dev python3 openssl fonts-ipafont-gothic"
packages_window="fonts-ipafont-gothic qt6-translations-l10n"
packages_wayland="qt6-wayland"
# munkres by its name: left to itself apt takes scipy for it, five times the size of all of these.
packages_manual="weasyprint python3-munkres python3-markdown python3-pil fonts-migmix poppler-utils openssl python3"
packages_figure="gnuplot-nox fonts-ipafont-gothic"

# missing_packages NAME...: those of them that are not installed.
missing_packages() {
  local name
  for name in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || echo "$name"
  done
}

need_packages() {
  local missing
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing, and neither root nor sudo is at hand: ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -qq || return 1
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Configures, with the words of `configure_options`, and builds a preset; its whole output stands in build/<preset>.log.
build_preset() {
  local preset=$1
  shift
  mkdir -p build
  echo "Building the $preset preset (log: build/$preset.log)"
  # One build at a time: ./run may have left the manual's at work.
  if ! configure_options=${configure_options:-} flock "build/$preset.lock" sh -c 'cmake --preset "$0" ${configure_options:-} && cmake --build --preset "$0" "$@"' "$preset" "$@" >"build/$preset.log" 2>&1; then
    grep -E 'error|Error|FAILED' -A5 "build/$preset.log" | head -n 60 >&2
    tail -n 20 "build/$preset.log" >&2
    return 1
  fi
}
