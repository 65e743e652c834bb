# What is built. A part is ON (its library must be there), OFF, or AUTO (built
# when its library is found, and said when it is left out).
option(PACTORA_TESTS "Build the tests" ON)
option(PACTORA_BENCH "Build the benchmarks" OFF)
option(PACTORA_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
set(PACTORA_SQLITE AUTO CACHE STRING "SQLite store: ON, OFF or AUTO")
set(PACTORA_DOORS AUTO CACHE STRING "Automation and command line: ON, OFF or AUTO")
set(PACTORA_DESKTOP AUTO CACHE STRING "Qt windows: ON, OFF or AUTO")

# Every target of ours links this one.
add_library(pactora_flags INTERFACE)
target_compile_options(pactora_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # These two warn of std::string's own code in optimised builds (GCC bug 105651).
  target_compile_options(pactora_flags INTERFACE -Wno-restrict -Wno-stringop-overflow)
endif()
if(PACTORA_SANITIZE)
  target_compile_options(pactora_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(pactora_flags INTERFACE -fsanitize=address,undefined)
endif()
find_program(PACTORA_MOLD mold)
if(PACTORA_MOLD)
  target_link_options(pactora_flags INTERFACE -fuse-ld=mold)
endif()
find_program(PACTORA_CCACHE ccache)
if(PACTORA_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${PACTORA_CCACHE})
endif()

# pactora_part(NAME FOUND WHAT): whether the part PACTORA_<NAME> is built, as
# PACTORA_HAS_<NAME>.
function(pactora_part name found what)
  set(has OFF)
  if(PACTORA_${name} STREQUAL "OFF")
    message(STATUS "${what}: switched off")
  elseif(${found})
    set(has ON)
  elseif(PACTORA_${name} STREQUAL "AUTO")
    message(STATUS "${what}: left out, its library is not on this machine")
  else()
    message(FATAL_ERROR "${what} was asked for, but its library is not on this machine")
  endif()
  set(PACTORA_HAS_${name} ${has} PARENT_SCOPE)
endfunction()

find_package(SQLite3 QUIET)
pactora_part(SQLITE SQLite3_FOUND "SQLite store")
find_package(nlohmann_json QUIET)
find_package(CLI11 QUIET)
find_package(fmt QUIET)
set(doors_found OFF)
if(nlohmann_json_FOUND AND CLI11_FOUND AND fmt_FOUND)
  set(doors_found ON)
endif()
pactora_part(DOORS doors_found "Automation and command line")
find_package(Qt6 QUIET COMPONENTS Widgets Test)
pactora_part(DESKTOP Qt6_FOUND "Qt windows")
