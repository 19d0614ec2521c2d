# Headers of other libraries that most files read anyway, compiled once for each set of flags. A set is included by its
# name alone: by its path, clang-tidy would take GCC's file beside it for one of clang's.
function(ambrel_precompile set)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINK" ${ARGN})
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${set}.cpp)
  file(TOUCH ${source})
  add_library(${set} OBJECT ${source})
  target_precompile_headers(${set} PRIVATE ${ARG_HEADERS})
  target_link_libraries(${set} PRIVATE ${ARG_LINK})
  set_target_properties(${set} PROPERTIES PRECOMPILED_IN ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${set}.dir)
endfunction()

# Lets the files of `target` begin with a set.
function(ambrel_use_precompiled target set)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_dependencies(${target} ${set})
    get_target_property(folder ${set} PRECOMPILED_IN)
    target_compile_options(${target} PRIVATE -I${folder} "SHELL:-include cmake_pch.hxx" -Winvalid-pch
      -Wno-error=invalid-pch)
  endif()
endfunction()

set(AMBREL_LANGUAGE_HEADERS <algorithm> <chrono> <filesystem> <functional> <map> <memory> <optional> <set> <string>
  <unordered_map> <variant> <vector>)
set(AMBREL_STANDARD_HEADERS ${AMBREL_LANGUAGE_HEADERS} <fmt/format.h>)
set(AMBREL_QT_HEADERS <QCoreApplication> <QDBusConnection> <QDBusMessage>)
set(AMBREL_QUICK_HEADERS <QAbstractListModel> <QGuiApplication> <QQmlComponent> <QQmlEngine> <QQuickItem> <QQuickView>)
