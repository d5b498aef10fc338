# The tests of the Windows build under Wine: scripts/windows --test, which sources this beside windows-libraries.sh.

packages_windows_test="wine wine64 locales xvfb xauth openbox xdotool imagemagick fonts-ipafont-gothic openssl libgtest-dev
  libgmock-dev"

# A Wine of their own, in the language and with the code page of the users.
prepare_wine() {
  export WINEPREFIX=$cache/wine WINEDEBUG=-all WINEARCH=win64 WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
  local locales=$cache/locales face
  if [ ! -e "$locales/ja_JP.UTF-8" ]; then
    mkdir -p "$locales"
    localedef -i ja_JP -f UTF-8 "$locales/ja_JP.UTF-8" || return 1
  fi
  # The shell itself cannot use it.
  { export LOCPATH=$locales LC_ALL=ja_JP.UTF-8; } 2>/dev/null
  unset DISPLAY http_proxy https_proxy all_proxy HTTPS_PROXY ALL_PROXY
  # A server that stays, and its services, which a program of their own starts: they would hold the output of the first
  # test open.
  wineserver -p >/dev/null 2>&1 </dev/null
  wine cmd /c exit >/dev/null 2>&1 </dev/null
  [ -e "$WINEPREFIX/ready" ] && return
  echo "Making a folder for Wine"
  wineboot -i >/dev/null 2>&1
  # The oldest that Qt supports; Wine itself takes an older one.
  wine winecfg -v win10 >/dev/null 2>&1 || return 1
  # The faces that Windows has, drawn with one that this machine has.
  for face in 'MS Gothic' 'MS UI Gothic' 'Yu Gothic UI' 'Meiryo' 'Meiryo UI' 'ＭＳ ゴシック' 'メイリオ'; do
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$face" /d IPAGothic /f >/dev/null 2>&1 || return 1
  done
  touch "$WINEPREFIX/ready"
}

# libraries_path: where the programs of the build tree find their DLLs, for Wine.
libraries_path() {
  echo "Z:$cache/build/qtbase/bin;Z:$(dirname "$($cxx -print-file-name=libstdc++-6.dll)");Z:/usr/$triplet/lib"
}

# The system aligns a stack to 16 bytes: no function may move a vector of 32 or 64 there as if it were aligned to these.
# The assembler of other libraries aligns its own stack; looked through is what a compiler made of C++.
check_alignment() {
  local file count=0 found status=0
  while IFS= read -r file; do
    found=$($triplet-objdump -d --no-show-raw-insn "$file" |
      grep -E 'vmov(ap[sd]|dqa(32|64)?|ntp[sd]|ntdqa?)\s.*%[yz]mm' | grep -c '(')
    count=$((count + 1))
    if [ "$found" -gt 0 ]; then
      echo "$found aligned moves of wide vectors in $file" >&2
      status=1
    fi
  done < <(find "$1" -name '*.obj' -path '*tremlo*' -not -path '*/tests/*'; find "$cache/build/qtbase/bin" -name 'Qt6*.dll')
  echo "Alignment of vectors: $count files of machine code looked through"
  [ $count -gt 10 ] && return $status
}

# test_programs BUILD: runs every test and comparison, tells what each came to, and fails when one did.
test_programs() {
  local build=$1 failed=()
  prepare_wine || return 1
  WINEPATH=$(libraries_path)
  export WINEPATH
  echo "Unit tests and tests of the command line under Wine"
  python3 tests/wine/python_host.py ctest --test-dir "$build" -L programs -j "$jobs" --output-on-failure || failed+=("unit tests")
  echo "Not tried here, and why:"
  grep -a -A1 ': Skipped$' "$build/Testing/Temporary/LastTest.log" | grep -av -e ': Skipped$' -e '^--$' | sort -u | sed 's/^/  /'
  check_alignment "$build" || failed+=("alignment of vectors")
  echo "Linux against Windows"
  (unset LC_ALL LOCPATH; build_preset release --target tremlo-cli sweep_timing) || return 1
  python3 tests/wine/compare_cli.py build/release/bin/tremlo-cli "$build/bin/tremlo-cli.exe" || failed+=("comparison with Linux")
  ninja -C "$build" sweep_timing.exe >/dev/null
  python3 tests/wine/compare_timing.py build/release/tests/wine/sweep_timing "$build/tests/wine/sweep_timing.exe" ||
    failed+=("speed of the sweep")
  # The window needs a Wine that was started with its display.
  wineserver -k
  if [ "$with_window" = yes ]; then
    echo "The window's route"
    python3 tests/wine/window_route.py "$cache/stage/tremlo" "$cache/pictures" || failed+=("the window's route")
  fi
  if [ ${#failed[@]} -gt 0 ]; then
    printf 'Failed: %s\n' "${failed[@]}"
    return 1
  fi
}
