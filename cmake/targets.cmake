# triaxlab_library(NAME SOURCES a.cpp ... LINKS lower floors and packages)
# One static library for each folder of src/; the name is the folder's.
function(triaxlab_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC triaxlab_flags ${ARG_LINKS})
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

# triaxlab_test(NAME SOURCES a_test.cpp ... LINKS libraries [ENVIRONMENT A=b ...])
# A test program on GoogleTest; each of its tests is one CTest test.
function(triaxlab_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  triaxlab_compile_fast(${name})
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
