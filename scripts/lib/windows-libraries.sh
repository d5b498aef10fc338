# The libraries of the Windows build, out of Debian's own source packages. To be sourced by scripts/windows, which exports
#   cache      folder that keeps what was made between runs; outside the working tree
#   toolchain  the CMake toolchain file, in cache: the libraries outlive the clone that made them
#   jobs       how many compilers run at once
# Made there: sources/<package> (unpacked, Debian's patches applied), build/<library>, prefix (headers, libraries).

packages_windows="g++-mingw-w64-x86-64-posix dpkg-dev patch cmake ninja-build perl python3 tcl sqlite3 qt6-base-dev qt6-base-dev-tools
  qt6-translations-l10n libeigen3-dev picojson-dev librsvg2-bin googletest"

triplet=x86_64-w64-mingw32
cc=$triplet-gcc-posix
cxx=$triplet-g++-posix

# apt with lists of its own, so that the machine's stay as they are; it checks every file against the signed index.
source_apt() {
  local apt=$cache/apt
  mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial"
  if [ ! -e "$apt/sources.list" ]; then
    local keyring=/usr/share/keyrings/debian-archive-keyring.gpg mirror=${TREMLO_DEBIAN_MIRROR:-http://deb.debian.org}
    printf 'deb-src [signed-by=%s] %s %s main\n' \
      $keyring "$mirror/debian" bookworm $keyring "$mirror/debian" bookworm-updates \
      $keyring "$mirror/debian-security" bookworm-security >"$apt/sources.list"
  fi
  local command=$1
  shift
  "apt-$command" -o Dir::Etc::sourcelist="$apt/sources.list" -o Dir::Etc::sourceparts=/dev/null \
    -o Dir::State::lists="$apt/lists" -o Dir::Cache="$apt/cache" -o APT::Sandbox::User="$(id -un)" "$@"
}

# patches_of PACKAGE: what is mended here in a source package beyond Debian's patches.
patches_of() {
  cat "scripts/lib/patches/$1"/*.patch 2>/dev/null
}

# fetch PACKAGE: downloads the newest version of the source package that the archive really holds, and unpacks it with
# Debian's patches and our own into sources/PACKAGE; sources/PACKAGE.version tells which. A package that is there is
# kept while our patches are the same.
fetch() {
  local package=$1 version
  if [ -e "$cache/sources/$package.version" ] &&
    [ "$(cat "$cache/sources/$package.patches")" = "$(patches_of "$package")" ]; then
    return
  fi
  # What comes to a stop below is not there.
  rm -f "$cache/sources/$package".{version,patches}
  if [ -z "${lists_are_fresh:-}" ]; then
    source_apt get update -qq || return 1
    lists_are_fresh=yes
  fi
  for version in $(source_apt cache showsrc "$package" | sed -n 's/^Version: //p' | sort -ruV); do
    rm -rf "${cache:?}/download/$package"
    mkdir -p "$cache/download/$package" "$cache/sources"
    if (cd "$cache/download/$package" && source_apt get source -qq --download-only "$package=$version"); then
      rm -rf "${cache:?}/sources/$package"
      # The signature of the index that led here was checked; the packager's own key need not be on this machine.
      (cd "$cache/download/$package" && dpkg-source --no-check -x ./*.dsc "$cache/sources/$package") || return 1
      patches_of "$package" >"$cache/sources/$package.patches"
      if [ -s "$cache/sources/$package.patches" ]; then
        patch -d "$cache/sources/$package" -p1 --batch --forward --quiet <"$cache/sources/$package.patches" || return 1
      fi
      echo "$version" >"$cache/sources/$package.version"
      return
    fi
    echo "The archive does not hold $package $version" >&2
  done
  return 1
}

# library NAME SOURCE FUNCTION: makes the library from the source package by FUNCTION, in a fresh folder build/NAME,
# unless the same recipe has made it from the same source with the same compiler.
library() {
  local name=$1 source=$2 recipe=$3 state log=$cache/$1.log start=$SECONDS
  fetch "$source" || return 1
  state=$(cat "$cache/sources/$source.version" "$cache/sources/$source.patches"; declare -f "$recipe"; $cxx --version)
  if [[ $state == *for_windows* ]]; then state+=$(declare -f for_windows; cat "$toolchain"); fi
  if [ "$(cat "$cache/build/$name.made" 2>/dev/null)" = "$state" ]; then return; fi
  echo "Building $name $(cat "$cache/sources/$source.version") (log: $log)"
  rm -rf "${cache:?}/build/$name" "$cache/build/$name.made"
  mkdir -p "$cache/build/$name" "$prefix/lib" "$prefix/include"
  # In a shell of its own: a function called in a condition goes on after an error.
  if ! bash -euc '. scripts/lib/windows-libraries.sh; cd "$0"; "$@"' "$cache/build/$name" "$recipe" "$cache/sources/$source" \
    >"$log" 2>&1; then
    grep -E 'error|Error|FAILED' -A5 "$log" | head -n 40 >&2
    tail -n 20 "$log" >&2
    return 1
  fi
  echo "$state" >"$cache/build/$name.made"
  echo "Built $name in $((SECONDS - start)) s"
}

to_prefix() {
  cp -p "$1" "$prefix/$2/"
}

# for_windows SOURCE [OPTION...]: configures for Windows in the current folder.
for_windows() {
  # Messages of the libraries name files of their source.
  local map=-ffile-prefix-map=$1=$(basename "$1")
  CFLAGS=$map CXXFLAGS=$map cmake -G Ninja -S "$1" -B . -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DTREMLO_WINDOWS_PREFIX="$prefix;$cache/build/qtbase;$cache/build/qtsvg" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" "${@:2}"
}

make_zlib() {
  cp "$1"/*.[ch] .
  for file in adler32 compress crc32 deflate gzclose gzlib gzread gzwrite infback inffast inflate inftrees trees uncompr zutil; do
    $cc -O2 -c $file.c
  done
  $triplet-ar rcs libz.a ./*.o
  to_prefix zlib.h include
  to_prefix zconf.h include
  to_prefix libz.a lib
}

# Its one big file is made natively: the generators would be programs of Windows else.
make_sqlite() {
  "$1/configure" --disable-shared --disable-tcl --disable-readline
  make sqlite3.c
  $cc -O2 -DSQLITE_ENABLE_RTREE -DSQLITE_ENABLE_COLUMN_METADATA -DSQLITE_OMIT_LOAD_EXTENSION -c sqlite3.c
  $triplet-ar rcs libsqlite3.a sqlite3.o
  to_prefix sqlite3.h include
  to_prefix libsqlite3.a lib
}

make_proj() {
  # The folder of this machine where it would look for its data is none of the users'.
  for_windows "$1" -DCMAKE_INSTALL_PREFIX=/nowhere -DBUILD_SHARED_LIBS=OFF -DENABLE_TIFF=OFF -DENABLE_CURL=OFF \
    -DBUILD_PROJSYNC=OFF -DBUILD_APPS=OFF -DBUILD_TESTING=OFF -DEXE_SQLITE3=/usr/bin/sqlite3 -DSQLITE3_INCLUDE_DIR="$prefix/include" \
    -DSQLITE3_LIBRARY="$prefix/lib/libsqlite3.a"
  ninja -j "$jobs"
  cmake --install . --prefix "$prefix"
}

# It looks for certificates in no folder: the program gives it a file, or Windows its store.
make_openssl() {
  # The day that it tells as that of its making is the same for all who make it.
  SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l "$1/debian/changelog" -S Timestamp)
  export SOURCE_DATE_EPOCH
  "$1/Configure" mingw64 --prefix=/nowhere --openssldir=/nowhere no-shared no-module no-engine no-tests \
    no-legacy no-comp no-srp no-idea no-camellia no-seed no-aria no-sm2 no-sm3 no-sm4 no-cms no-ts no-ssl3 no-dtls \
    CC=$cc AR=$triplet-ar RANLIB=$triplet-ranlib RC=$triplet-windres
  make -j "$jobs" build_libs
  to_prefix libssl.a lib
  to_prefix libcrypto.a lib
  mkdir -p "$prefix/include/openssl"
  cp -p "$1"/include/openssl/*.h include/openssl/*.h "$prefix/include/openssl/"
}

make_curl() {
  for_windows "$1" -DBUILD_SHARED_LIBS=OFF -DBUILD_CURL_EXE=OFF -DHTTP_ONLY=ON -DCURL_USE_OPENSSL=ON -DOPENSSL_USE_STATIC_LIBS=ON \
    -DOPENSSL_ROOT_DIR="$prefix" -DCURL_USE_LIBSSH2=OFF -DCURL_ZLIB=OFF -DUSE_LIBIDN2=OFF -DUSE_WIN32_IDN=ON -DUSE_NGHTTP2=OFF \
    -DENABLE_UNICODE=ON -DENABLE_MANUAL=OFF -DBUILD_TESTING=OFF
  ninja -j "$jobs" install
}

make_libarchive() {
  local off=(TEST TAR CPIO CAT OPENSSL MBEDTLS NETTLE LIBB2 LZ4 LZO LZMA ZSTD BZip2 LIBXML2 EXPAT PCREPOSIX PCRE2POSIX
    CNG ICONV ACL XATTR)
  local name options=()
  for name in "${off[@]}"; do options+=("-DENABLE_$name=OFF"); done
  # What it would find out by running a program of Windows is given.
  for_windows "$1" "${options[@]}" -DPOSIX_REGEX_LIB=NONE -DZLIB_WINAPI_EXITCODE=1 -DZLIB_WINAPI_EXITCODE__TRYRUN_OUTPUT=
  ninja -j "$jobs" archive_static
  to_prefix libarchive/libarchive_static.a lib
  mv "$prefix/lib/libarchive_static.a" "$prefix/lib/libarchive.a"
  to_prefix "$1/libarchive/archive.h" include
  to_prefix "$1/libarchive/archive_entry.h" include
}

# Without the font database of DirectWrite, which Debian's sources do not link without Direct2D.
make_qtbase() {
  local off=(pkg_config network sql dbus xml concurrent printsupport vulkan direct2d directwrite directwrite3 tabletevent icu glib
    zstd system_zlib system_pcre2 system_harfbuzz system_freetype system_png system_jpeg system_doubleconversion)
  local name options=()
  for name in "${off[@]}"; do options+=("-DFEATURE_$name=OFF"); done
  # Where xmlstarlet is installed it would shorten the list of file types.
  for_windows "$1" -DBUILD_SHARED_LIBS=ON -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF -DINPUT_opengl=no -Dxmlstarlet=OFF \
    "${options[@]}"
  ninja -j "$jobs" Core
}

# What the window takes beyond the core, in the same folder; it ends at once where that is made already.
add_qt_window() {
  ninja -C "$cache/build/qtbase" -j "$jobs" Gui Widgets QWindowsIntegrationPlugin QICOPlugin QJpegPlugin \
    EntryPointImplementation
}

make_qtsvg() {
  for_windows "$1" -DBUILD_SHARED_LIBS=ON -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF -DQt6_DIR="$cache/build/qtbase/lib/cmake/Qt6"
  ninja -j "$jobs"
}

make_googletest() {
  for_windows "$1" -DBUILD_SHARED_LIBS=OFF
  ninja -j "$jobs" install
}
