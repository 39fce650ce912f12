# ccache is used when it is there; a launcher that somebody chose stays.
find_program(ZANDO_CCACHE ccache)
mark_as_advanced(ZANDO_CCACHE)
if(ZANDO_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ZANDO_CCACHE})
endif()
