set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual)
# GCC 12 sees overlapping copies where a literal is joined to a moved string (GCC bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-Wno-restrict)
endif()

option(AMBREL_WERROR "Take warnings as errors" ON)
if(AMBREL_WERROR)
  add_compile_options(-Werror)
endif()

set(AMBREL_SANITIZE "" CACHE STRING "A sanitizer for everything: address,undefined or thread")
if(AMBREL_SANITIZE)
  add_compile_options(-fsanitize=${AMBREL_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${AMBREL_SANITIZE})
endif()

# What qmlcachegen writes is not ours to mend.
function(ambrel_quiet_generated target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "/qmlcache/")
  set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w)
endfunction()

# One folder is one library; what stands behind it is the law of dependence. SHARED says that a shared library takes it
# in too: it is compiled for that, and without the headers that are precompiled for programs.
function(ambrel_library name)
  cmake_parse_arguments(ARG "SHARED" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/Sources ${PROJECT_SOURCE_DIR}/Sources/Ambrel)
  target_link_libraries(${name} PUBLIC ${ARG_LINK})
  if(ARG_SHARED)
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  elseif(ARG_LINK AND NOT ARG_LINK MATCHES Qt6::)
    ambrel_use_precompiled(${name} AmbrelStandardHeaders)
  endif()
endfunction()
