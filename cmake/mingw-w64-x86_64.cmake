# Toolchain for 64-bit Windows on Debian: the compiler of g++-mingw-w64-x86-64-posix, whose threads are those of the
# standard library. TREMLO_WINDOWS_PREFIX is the folder with the libraries made for it (scripts/windows).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TREMLO_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH /usr/${triplet} ${TREMLO_WINDOWS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The system aligns a stack to 16 bytes, the compiler takes vectors of 32 and 64 there for aligned.
set(CMAKE_C_FLAGS_INIT "-Wa,-muse-unaligned-vector-move")
# Of the libraries Qt alone is shared; this one has to be told.
set(CMAKE_CXX_FLAGS_INIT "-Wa,-muse-unaligned-vector-move -DLIBARCHIVE_STATIC")

# The same code gives the same file, whenever it is linked.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,--no-insert-timestamp")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-Wl,--no-insert-timestamp")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-Wl,--no-insert-timestamp")

# The tools of Qt are those of the machine that builds; its resource compiler packs as this Qt does not unpack.
set(QT_HOST_PATH /usr CACHE PATH "Where the tools of Qt are")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "Where they are described")
set(CMAKE_AUTORCC_OPTIONS --no-zstd)
