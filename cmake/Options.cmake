# What differs between systems stands in files of that ending, one of which is compiled.
set(TREMLO_PLATFORM Unix)
if(WIN32)
  set(TREMLO_PLATFORM Windows)
endif()

# One interface library carries the compiler settings of every target.
add_library(tremlo_options INTERFACE)
target_compile_features(tremlo_options INTERFACE cxx_std_20)
target_include_directories(tremlo_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  # A fused multiply-add rounds once where two operations round twice: results would depend on the processor.
  target_compile_options(tremlo_options INTERFACE -ffp-contract=off)
  target_compile_options(tremlo_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual -Wnull-dereference)
  if(TREMLO_WARNINGS_AS_ERRORS)
    target_compile_options(tremlo_options INTERFACE -Werror)
  endif()
  if(TREMLO_SANITIZE)
    # A number that its whole-number type cannot hold is undefined too, though not all compilers count it in.
    set(sanitizers -fsanitize=address,undefined,float-cast-overflow)
    target_compile_options(tremlo_options INTERFACE
      ${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tremlo_options INTERFACE ${sanitizers})
  endif()
  if(TREMLO_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
      message(FATAL_ERROR "The fuzz targets need clang: scripts/fuzz")
    endif()
    # Counts the branches taken everywhere; only the fuzz programs link the fuzzer itself.
    target_compile_options(tremlo_options INTERFACE -fsanitize=fuzzer-no-link)
  endif()
endif()

if(MINGW)
  # What curl and PROJ tell those alone who link them, for they are static there. Precompiled headers are shared with others.
  target_compile_definitions(tremlo_options INTERFACE CURL_STATICLIB PROJ_DLL=)
endif()

option(TREMLO_HARDENING "Checks of the compiler and linker against overruns" ON)
if(TREMLO_HARDENING AND CMAKE_SYSTEM_NAME STREQUAL "Linux" AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(tremlo_options INTERFACE -fstack-protector-strong -Wformat -Wformat-security -fPIE)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    target_compile_options(tremlo_options INTERFACE -fcf-protection)
  endif()
  target_link_options(tremlo_options INTERFACE -Wl,-z,relro -Wl,-z,now
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>)
  # The checked functions of the C library need an optimising compiler, and hide faults from the sanitizers.
  if(NOT TREMLO_SANITIZE)
    target_compile_definitions(tremlo_options INTERFACE $<$<NOT:$<CONFIG:Debug,>>:_FORTIFY_SOURCE=2>)
  endif()
endif()

# The same binary wherever it is built. A debug build keeps the paths, by which a debugger finds the sources.
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(tremlo_options INTERFACE $<$<NOT:$<CONFIG:Debug>>:
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=./build>)
endif()

target_compile_definitions(tremlo_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
