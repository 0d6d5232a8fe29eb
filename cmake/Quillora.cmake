# The two shapes of target that the tree is made of.

# quillora_library(NAME SOURCES ... [DEPENDS ...] [TESTS ...])
#
# The library quillora_NAME of the current folder, and, with TESTS, the program quillora_NAME_test made of
# the tests that stand beside its sources. Includes are written from src/: "session/workspace.h".
function(quillora_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;TESTS" ${ARGN})
  set(target quillora_${name})
  if(ARG_SOURCES)
    add_library(${target} STATIC ${ARG_SOURCES})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${target} PRIVATE ${ARG_DEPENDS})
    quillora_warnings(${target})
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${PROJECT_SOURCE_DIR}/src)
  endif()
  if(ARG_TESTS AND BUILD_TESTING)
    quillora_test(${target}_test SOURCES ${ARG_TESTS} DEPENDS ${target} ${ARG_DEPENDS} quillora_test_support LABELS ${name})
  endif()
endfunction()

# quillora_test(NAME [ALONE] SOURCES ... [DEPENDS ...] [LABELS ...])
#
# A GoogleTest program; each of its tests is a test of ctest's. Fakes are included as "tests/support/...". ALONE is for
# tests that happen in real time: no other is to run beside them on a machine of two processors.
function(quillora_test target)
  cmake_parse_arguments(ARG "ALONE" "" "SOURCES;DEPENDS;LABELS" ${ARGN})
  set(processors 1)
  if(ARG_ALONE)
    set(processors 2)
  endif()
  include(GoogleTest)
  add_executable(${target} ${ARG_SOURCES})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${target} PRIVATE ${ARG_DEPENDS} quillora_test_support GTest::gtest GTest::gtest_main)
  quillora_warnings(${target})
  gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES
    PROPERTIES TIMEOUT 120 PROCESSORS ${processors} LABELS "${ARG_LABELS}")
endfunction()

function(quillora_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)
endfunction()
