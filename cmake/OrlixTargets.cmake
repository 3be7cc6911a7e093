# What every target of the project is compiled with, and the libraries that more than one of them uses.

# Flags of our own sources; linked privately, so consumers inherit none of them.
add_library(orlix_flags INTERFACE)
target_compile_options(orlix_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wdouble-promotion
  # g++ 12 sees overlapping copies in correct std::string code when it optimises (GCC bug 105651).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  # A result must not depend on which products the compiler fuses with their sums.
  -ffp-contract=off)

# Parallel loops; without OpenMP they run one after the other and give the same.
add_library(orlix_openmp INTERFACE)
find_package(OpenMP COMPONENTS CXX)
if(OpenMP_CXX_FOUND)
  target_link_libraries(orlix_openmp INTERFACE OpenMP::OpenMP_CXX)
endif()

# JSON. A system include, because its headers warn under C++20.
find_path(RAPIDJSON_INCLUDE_DIR rapidjson/document.h REQUIRED)
add_library(orlix_rapidjson INTERFACE)
target_include_directories(orlix_rapidjson SYSTEM INTERFACE
  $<BUILD_INTERFACE:${RAPIDJSON_INCLUDE_DIR}>)
target_compile_definitions(orlix_rapidjson INTERFACE RAPIDJSON_HAS_STDSTRING=1)
