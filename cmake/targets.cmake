# triaxlab_library(NAME SOURCES a.cpp ... LINKS lower floors and packages)
# One static library for each folder of src/; the name is the folder's.
function(triaxlab_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC triaxlab_flags ${ARG_LINKS})
    if(triaxlab_library_headers AND ${name} STREQUAL common)
      target_precompile_headers(${name} PRIVATE ${triaxlab_library_headers})
    elseif(triaxlab_library_headers)
      target_precompile_headers(${name} REUSE_FROM common)
    endif()
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE triaxlab_flags ${ARG_LINKS})
  endif()
endfunction()

# triaxlab_leaves_out(WHAT LACKING): says aloud what this build does without, and for want of which packages.
function(triaxlab_leaves_out what)
  list(JOIN ARGN ", " lacking)
  message(STATUS "Left out for want of ${lacking}: ${what}")
endfunction()

# What a test does itself is short, and compiling it is most of what a build from nothing costs.
function(triaxlab_compile_fast name)
  target_compile_options(${name} PRIVATE $<$<OR:$<BOOL:${TRIAXLAB_SANITIZE}>,$<CONFIG:RelWithDebInfo>>:-O0 -g1>)
endfunction()

# What every test reads first costs a quarter of compiling it; test_headers has read it once for all.
set(triaxlab_test_headers
  <algorithm> <filesystem> <functional> <gmock/gmock.h> <gtest/gtest.h> <map> <optional> <span> <string> <vector>)

# triaxlab_share_headers(NAME [HEADERS <a> ...]): HEADERS are what nearly all sources of this program read besides.
function(triaxlab_share_headers name)
  cmake_parse_arguments(ARG "" "" "HEADERS" ${ARGN})
  # Where the compiler optimises, it warns of its own library's lines when they come out of such a header; elsewhere
  # than here it makes them in other ways, and time is not short.
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU OR CMAKE_CROSSCOMPILING
     OR NOT (TRIAXLAB_SANITIZE OR CMAKE_BUILD_TYPE STREQUAL RelWithDebInfo))
    return()
  endif()
  # The toolkit asks for it, and the headers are read for one way only.
  target_compile_options(${name} PRIVATE -fPIC)
  if(${name} STREQUAL test_headers OR ARG_HEADERS)
    target_precompile_headers(${name} PRIVATE ${triaxlab_test_headers} ${ARG_HEADERS})
  else()
    target_precompile_headers(${name} REUSE_FROM test_headers)
  endif()
endfunction()

# triaxlab_test(NAME SOURCES a_test.cpp ... LINKS libraries [ENVIRONMENT A=b ...] [HEADERS <a> ...])
# A test program on GoogleTest; each of its tests is one CTest test. HEADERS as above.
function(triaxlab_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;ENVIRONMENT;HEADERS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  triaxlab_compile_fast(${name})
  triaxlab_share_headers(${name} HEADERS ${ARG_HEADERS})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} triaxlab_flags GTest::gtest GTest::gmock GTest::gtest_main)
  # Wine shows this machine's files as a drive.
  set(source ${PROJECT_SOURCE_DIR})
  if(WIN32)
    set(source Z:${PROJECT_SOURCE_DIR})
  endif()
  target_compile_definitions(${name} PRIVATE TRIAXLAB_SAMPLES="${source}/samples" TRIAXLAB_SOURCE="${source}")
  foreach(source ${ARG_SOURCES})
    # One that depends on a package stands in a generator expression.
    string(REGEX REPLACE "^\\$<.*:(.*)>$" "\\1" source ${source})
    set_property(GLOBAL APPEND PROPERTY TRIAXLAB_TEST_SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/${source})
  endforeach()
  add_dependencies(all_tests ${name})
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()
