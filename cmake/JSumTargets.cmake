# The flags and shapes that all of our own targets share.

add_library(jsum_options INTERFACE)
target_compile_options(jsum_options INTERFACE
  -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  # A fused multiply-add would move the value scaling's truncations on some processors.
  -ffp-contract=off)
target_compile_definitions(jsum_options INTERFACE
  QT_NO_FOREACH QT_DEPRECATED_WARNINGS
  $<$<CONFIG:Debug>:JSUM_STRICT_CONNECTIONS>)

# JUCE's modules compiled once. Their headers are system includes for everybody who links this.
add_library(jsum_juce STATIC)
target_link_libraries(jsum_juce PRIVATE juce::juce_audio_devices)
target_compile_definitions(jsum_juce
  PUBLIC
    JUCE_STANDALONE_APPLICATION=1
    JUCE_WEB_BROWSER=0
    JUCE_USE_CURL=0
    JUCE_JACK=0
    JUCE_ALSA_MIDI_NAME="J-Sum Editor"
  INTERFACE
    $<TARGET_PROPERTY:jsum_juce,COMPILE_DEFINITIONS>)
# It moves a few bytes per message here: -O2 buys nothing but minutes of compiling.
target_compile_options(jsum_juce PRIVATE -w -g0 $<$<CONFIG:RelWithDebInfo>:-O1>)
target_include_directories(jsum_juce SYSTEM INTERFACE
  $<TARGET_PROPERTY:jsum_juce,INCLUDE_DIRECTORIES>)
set_target_properties(jsum_juce PROPERTIES AUTOMOC OFF AUTORCC OFF)
# JUCE's modules carry plain C++ in .cpp files of their own; they need a standard, not our warnings.
target_compile_features(jsum_juce PUBLIC cxx_std_20)

# Qt's headers cost more to compile than our sources. So they are precompiled once for all that is
# built with the same flags, and a target's sources are compiled several at a time. The presets debug
# and sanitize do neither, so that a source that lacks an include is found there.
option(JSUM_QUICK_BUILD "Precompile Qt's headers and compile several sources as one" ON)
function(jsum_qt_headers name)
  add_library(${name} STATIC "${PROJECT_SOURCE_DIR}/cmake/qtheaders.cpp")
  target_link_libraries(${name} PRIVATE Qt6::Widgets jsum_options ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  if(JSUM_QUICK_BUILD)
    target_precompile_headers(${name} PRIVATE <QtWidgets>)
  endif()
endfunction()
function(jsum_reuse_headers name headers)
  if(JSUM_QUICK_BUILD)
    target_precompile_headers(${name} REUSE_FROM ${headers})
  endif()
endfunction()
jsum_qt_headers(jsum_headers)

function(jsum_join_sources name)
  if(JSUM_QUICK_BUILD)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
  endif()
endfunction()

# jsum_library(NAME SOURCES ... LINKS ...): one static library for the folder it is called in; the
# folder is its include directory, so a header is seen only by those who link the library.
function(jsum_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE jsum_options)
  if("Qt6::Widgets" IN_LIST ARG_LINKS)
    jsum_reuse_headers(${name} jsum_headers)
  endif()
  jsum_join_sources(${name})
endfunction()

# jsum_program(NAME SOURCES ... LINKS ...): an executable with our flags.
function(jsum_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} jsum_options)
  jsum_join_sources(${name})
endfunction()

# Test programs are built quickly rather than to run quickly; what they test keeps its own flags.
add_library(jsum_test_options INTERFACE)
target_compile_options(jsum_test_options INTERFACE -O0)

# jsum_test_program(NAME SOURCES ... LINKS ...): a program of tests.
function(jsum_test_program name)
  jsum_program(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE jsum_test_support Qt6::Widgets jsum_test_options)
  jsum_reuse_headers(${name} jsum_test_headers)
endfunction()

# jsum_test_fixture(NAME SOURCES ... LINKS ...): what several programs of tests share.
function(jsum_test_fixture name)
  jsum_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(${name} PUBLIC jsum_test_support Qt6::Widgets PRIVATE jsum_test_options)
  target_compile_definitions(${name} PUBLIC JSUM_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  jsum_reuse_headers(${name} jsum_test_headers)
endfunction()

# jsum_test(NAME SOURCES ... LINKS ... [SEQUENCER]): a Qt Test program. Those that need the
# system's MIDI sequencer carry the label "sequencer": they are not run by plain ctest, but by
# tests/with-sequencer.
function(jsum_test name)
  cmake_parse_arguments(ARG "SEQUENCER" "" "SOURCES;LINKS;ARGUMENTS" ${ARGN})
  jsum_test_program(${name} SOURCES ${ARG_SOURCES} LINKS ${ARG_LINKS})
  add_test(NAME ${name} COMMAND ${name} ${ARG_ARGUMENTS})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_LOGGING_TO_CONSOLE=1" TIMEOUT 300)
  if(ARG_SEQUENCER)
    set_tests_properties(${name} PROPERTIES LABELS sequencer TIMEOUT 900)
  else()
    set_tests_properties(${name} PROPERTIES LABELS plain)
  endif()
endfunction()
