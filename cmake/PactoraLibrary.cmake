# pactora_library(name SOURCES a.cpp ... DEPENDS other ...): one folder, one
# library. Without sources it is a library of headers. Headers are found from
# src/ as "folder/Header.h".
function(pactora_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  if(arg_SOURCES)
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE $<BUILD_INTERFACE:pactora_flags>)
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} INTERFACE ${arg_DEPENDS})
  endif()
endfunction()

# pactora_test(name SOURCES a_test.cpp ... DEPENDS pactora_x ...): a test program
# whose cases are each a test of their own; on Windows the program is one test, as
# each start takes its time there.
function(pactora_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_DEPENDS} GTest::gmock GTest::gtest_main pactora_flags)
  if(WIN32)
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
  else()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
  endif()
endfunction()
