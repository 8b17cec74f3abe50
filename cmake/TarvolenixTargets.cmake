# What all targets of the project share.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# Most of the program is a module.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

option(TARVOLENIX_WERROR "Treat warnings as errors" OFF)
set(TARVOLENIX_SANITIZE "" CACHE STRING "Build with these sanitizers, separated by commas")
option(TARVOLENIX_UNITY "Compile several sources of a folder at once, which takes a third of the time" OFF)
option(TARVOLENIX_PCH "Compile the headers that nearly all sources read only once" ON)
option(TARVOLENIX_BENCH "Build the benchmarks" OFF)

# Asserts are for our own mistakes and stay on in release.
foreach(configuration IN ITEMS RELEASE RELWITHDEBINFO)
  string(REPLACE "-DNDEBUG" "" CMAKE_CXX_FLAGS_${configuration}
    "${CMAKE_CXX_FLAGS_${configuration}}")
endforeach()

add_library(tarvolenix_flags INTERFACE)
target_compile_options(tarvolenix_flags INTERFACE -Wall -Wextra -Wpedantic
  -Wnon-virtual-dtor -Woverloaded-virtual -Wconversion -Wno-sign-conversion)
if(TARVOLENIX_UNITY)
  # There a source seems to hide or to show what another one has for itself.
  target_compile_options(tarvolenix_flags INTERFACE -Wno-subobject-linkage)
else()
  target_compile_options(tarvolenix_flags INTERFACE -Wshadow)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU")
  # Nobody outside takes the place of a function, so a call needn't be prepared for that.
  add_compile_options(-fno-semantic-interposition)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  target_compile_options(tarvolenix_flags INTERFACE -Wno-error=unknown-warning-option)
endif()
if(TARVOLENIX_WERROR)
  target_compile_options(tarvolenix_flags INTERFACE -Werror)
endif()
if(TARVOLENIX_SANITIZE)
  add_compile_options(-fsanitize=${TARVOLENIX_SANITIZE} -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TARVOLENIX_SANITIZE})
  # So that the longest tests take a sample there.
  add_compile_definitions(TARVOLENIX_SANITIZED)
endif()

# Qt's older conveniences that hide mistakes stay off.
add_library(tarvolenix_qt_flags INTERFACE)
target_compile_definitions(tarvolenix_qt_flags INTERFACE QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_link_libraries(tarvolenix_qt_flags INTERFACE tarvolenix_flags)

set(plain_headers <algorithm> <chrono> <cstdint> <functional> <map> <memory> <optional> <set>
  <string> <string_view> <tuple> <utility> <vector>)

# tarvolenix_links_toolkit(RESULT USES...): whether one of these brings a toolkit along, whose flags
# differ from those of plain C++.
function(tarvolenix_links_toolkit result)
  set(${result} OFF PARENT_SCOPE)
  foreach(used IN LISTS ARGN)
    set(brings OFF)
    if(TARGET ${used})
      get_target_property(brings ${used} TARVOLENIX_TOOLKIT)
    endif()
    if(brings OR used MATCHES "::|qt_flags")
      set(${result} ON PARENT_SCOPE)
    endif()
  endforeach()
endfunction()

# tarvolenix_precompile(TARGET KIND HEADERS...): the first target of a kind compiles them, the others
# of that kind, which must have the same flags, share them.
function(tarvolenix_precompile target kind)
  if(NOT TARVOLENIX_PCH)
    return()
  endif()
  get_property(owner GLOBAL PROPERTY tarvolenix_pch_${kind})
  # Not all rooms are watched by the fuzzer: with the sanitizers each has headers of its own.
  if(owner AND NOT TARVOLENIX_SANITIZE)
    target_precompile_headers(${target} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
    set_property(GLOBAL PROPERTY tarvolenix_pch_${kind} ${target})
  endif()
endfunction()

# tarvolenix_folder(NAME SOURCES... USES folders and libraries...)
# One source folder as a library of the same name. USES is the proof of which way the arrows go.
function(tarvolenix_folder name)
  cmake_parse_arguments(FOLDER "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${FOLDER_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  target_link_libraries(${name} PRIVATE tarvolenix_flags PUBLIC ${FOLDER_USES})
  tarvolenix_links_toolkit(toolkit ${FOLDER_USES})
  set_target_properties(${name} PROPERTIES TARVOLENIX_TOOLKIT ${toolkit}
    UNITY_BUILD ${TARVOLENIX_UNITY} UNITY_BUILD_BATCH_SIZE 6)
  if("Qt6::Widgets" IN_LIST FOLDER_USES)
    tarvolenix_precompile(${name} windows ${plain_headers} <QtWidgets>)
  elseif("${FOLDER_USES}" MATCHES "desktop|Qt6::Gui")
    tarvolenix_precompile(${name} core ${plain_headers} <filesystem> <QtCore>)
  elseif(NOT toolkit)
    tarvolenix_precompile(${name} plain ${plain_headers})
  endif()
endfunction()

# tarvolenix_module(NAME SOURCES... USES folders and libraries...)
# A module, which the program loads when it first needs what is in it. A folder that keeps a state has
# one of its own there.
function(tarvolenix_module name)
  cmake_parse_arguments(MODULE "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} MODULE ${MODULE_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/src")
  target_link_libraries(${name} PRIVATE tarvolenix_qt_flags ${MODULE_USES})
  set_target_properties(${name} PROPERTIES PREFIX "" OUTPUT_NAME "tarvolenix-${name}-${PROJECT_VERSION}"
    CXX_VISIBILITY_PRESET hidden LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/src")
  # Only its own doors lead into it.
  target_link_options(${name} PRIVATE -Wl,--exclude-libs,ALL)
  install(TARGETS ${name} DESTINATION "${TARVOLENIX_MODULES}")
endfunction()

# tarvolenix_test(NAME SOURCES... USES...): one test program, found by ctest case by case.
function(tarvolenix_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE tarvolenix_flags ${TEST_USES} GTest::gtest_main)
  tarvolenix_links_toolkit(toolkit ${TEST_USES})
  if(NOT toolkit)
    tarvolenix_precompile(${name} tests ${plain_headers} <gtest/gtest.h>)
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8" TIMEOUT 300)
endfunction()
