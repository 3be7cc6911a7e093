option(VELMO_PRECOMPILE "Precompile the headers of the standard library that most sources read" OFF)
# Sources name what they use all the same: they compile alone where the option is off.
set(VELMO_PRECOMPILED <algorithm> <array> <cmath> <filesystem> <functional> <map> <memory> <optional> <set>
    <sstream> <string> <variant> <vector>)

# orlix_add_library(name
#   HEADERS a.h ...          public: found as "<folder>/a.h" from the repository root. Each compiles alone: one with a
#                            source of its name as the first thing in there, the others by a check of their own
#   SOURCES a.cpp ...        none for a folder of headers only
#   TESTS   a sub/b ...      test/a_test.cpp, sub/test/b_test.cpp; together one executable <name>_test, label <name>
#   DEPENDS other ...        libraries whose headers ours include
#   PRIVATE_DEPENDS other ...)  libraries that only our sources include
# Makes the static (or header-only) library <name> with the alias Orlix::<name>.
function(orlix_add_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;SOURCES;TESTS;DEPENDS;PRIVATE_DEPENDS")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "${name}: unknown arguments ${arg_UNPARSED_ARGUMENTS}")
  endif()

  if(arg_SOURCES)
    add_library(${name} STATIC ${arg_SOURCES})
    set(scope PUBLIC)
    target_link_libraries(${name} PRIVATE orlix_flags ${arg_PRIVATE_DEPENDS})
    list(LENGTH arg_SOURCES count)
    if(VELMO_PRECOMPILE AND count GREATER 4)
      target_precompile_headers(${name} PRIVATE ${VELMO_PRECOMPILED})
    endif()
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  add_library(Orlix::${name} ALIAS ${name})
  target_compile_features(${name} ${scope} cxx_std_20)
  target_link_libraries(${name} ${scope} ${arg_DEPENDS})
  set(first_in_source)
  set(alone)
  foreach(header IN LISTS arg_HEADERS)
    string(REGEX REPLACE "\\.h$" ".cpp" source ${header})
    if(source IN_LIST arg_SOURCES)
      list(APPEND first_in_source ${header})
    else()
      list(APPEND alone ${header})
    endif()
  endforeach()
  target_sources(${name} ${scope}
    FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${first_in_source}
    FILE_SET headers_alone TYPE HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${alone})
  set_target_properties(${name} PROPERTIES INTERFACE_HEADER_SETS_TO_VERIFY headers_alone)

  if(VELMO_BUILD_TESTS AND arg_TESTS)
    list(TRANSFORM arg_TESTS REPLACE "([^/]+)$" "test/\\1_test.cpp" OUTPUT_VARIABLE test_sources)
    add_executable(${name}_test ${test_sources})
    list(LENGTH test_sources count)
    if(count GREATER 2)
      target_precompile_headers(${name}_test PRIVATE <gtest/gtest.h>)
    endif()
    target_link_libraries(${name}_test
      PRIVATE ${name} ${arg_PRIVATE_DEPENDS} orlix_flags GTest::gtest_main)
    gtest_discover_tests(${name}_test
      DISCOVERY_MODE PRE_TEST
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
      PROPERTIES LABELS ${name})
  endif()
endfunction()
