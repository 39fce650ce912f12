# One interface target carries the flags of every target of the project.
add_library(zando_options INTERFACE)

# The same level gives the same bytes on every machine: no fused multiply-add, no fast-math.
target_compile_options(
  zando_options
  INTERFACE -ffp-contract=off
            -fno-fast-math
            -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wnon-virtual-dtor
            -Wold-style-cast)

# GCC 12 warns of overlapping copies inside "x" + std::string, where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(zando_options INTERFACE -Wno-restrict)
endif()

if(ZANDO_WERROR)
  target_compile_options(zando_options INTERFACE -Werror)
endif()

if(ZANDO_SANITIZE)
  set(_sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(zando_options INTERFACE ${_sanitizers})
  target_link_options(zando_options INTERFACE ${_sanitizers})
endif()

if(ZANDO_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "The fuzz targets need Clang")
  endif()
  target_compile_options(zando_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
