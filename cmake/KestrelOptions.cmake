# SPDX-License-Identifier: MIT
# Compiler settings that every target shares. A target opts in by linking
# kestrel_options; the presets choose the values.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

# Whoever only wants to use Kestrel may have a compiler that warns of more than ours do, and must not
# be stopped by it. So the preset release builds with warnings, unless the environment variable
# KESTREL_WERROR is ON, as .ci/run sets it; all other presets take warnings as errors.
option(KESTREL_WERROR "Treat compiler warnings as errors" OFF)
option(KESTREL_COVERAGE "Count executed lines" OFF)
option(KESTREL_STATIC_ASSEMBLER "Link NESasm without shared libraries" OFF)
option(KESTREL_FUZZERS "Build the fuzz targets (clang only)" OFF)
option(KESTREL_BENCHMARKS "Build the benchmark programs" OFF)
set(KESTREL_SANITIZER "" CACHE STRING "Value for -fsanitize=, empty for none")

# A compiler cache is used where there is one; nothing depends on it.
find_program(KESTREL_CCACHE ccache)
if(KESTREL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${KESTREL_CCACHE}")
endif()

add_library(kestrel_options INTERFACE)
target_include_directories(kestrel_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_definitions(kestrel_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
target_compile_options(kestrel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor
  -Wold-style-cast -Woverloaded-virtual -Wcast-qual -Wundef)
# g++ 12 warns of overlapping copies in ordinary string additions once it optimises; it is mistaken
# (GCC bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(kestrel_options INTERFACE -Wno-restrict)
endif()
if(KESTREL_WERROR)
  target_compile_options(kestrel_options INTERFACE -Werror)
endif()
if(KESTREL_SANITIZER)
  target_compile_options(kestrel_options INTERFACE
    -fsanitize=${KESTREL_SANITIZER} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(kestrel_options INTERFACE -fsanitize=${KESTREL_SANITIZER})
endif()
if(KESTREL_COVERAGE)
  target_compile_options(kestrel_options INTERFACE --coverage)
  target_link_options(kestrel_options INTERFACE --coverage)
endif()

# kestrel_library(NAME SOURCES ... LINKS ...): a static library under src/.
function(kestrel_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC kestrel_options ${ARG_LINKS})
endfunction()

# kestrel_widgets_library(NAME SOURCES ... LINKS ...): the same for a library with widgets or other
# Qt objects: meta-object code and resources (.qrc among the SOURCES) are generated.
function(kestrel_widgets_library name)
  kestrel_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
endfunction()
