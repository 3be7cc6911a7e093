# The library as other programs see it: libvelmologic, static and shared, of the objects of all folders up to the
# facade, the importers and the CSV report; its headers, a CMake package and a pkg-config file. See docs/embedding.md.

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(parts oxutil oxnumeric oxsection oxdata vldata vlsol results case_json clipboard materials legacy app csv
    dxf_import bridge)
set(header_root ${CMAKE_INSTALL_INCLUDEDIR}/velmologic)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/VelmoLogic)

set(objects)
set(headers)
foreach(part IN LISTS parts)
  get_target_property(type ${part} TYPE)
  if(NOT type STREQUAL "INTERFACE_LIBRARY")
    list(APPEND objects $<TARGET_OBJECTS:${part}>)
  endif()
  foreach(set HEADERS headers_alone)
    get_target_property(part_headers ${part} HEADER_SET_${set})
    if(part_headers)
      list(APPEND headers ${part_headers})
    endif()
  endforeach()
endforeach()
list(TRANSFORM headers REPLACE "^${PROJECT_SOURCE_DIR}/" "")

foreach(kind static shared)
  string(TOUPPER ${kind} KIND)
  add_library(velmologic_${kind} ${KIND} ${objects})
  add_library(VelmoLogic::${kind} ALIAS velmologic_${kind})
  set_target_properties(velmologic_${kind} PROPERTIES
    OUTPUT_NAME velmologic
    EXPORT_NAME ${kind}
    LINKER_LANGUAGE CXX
    VERIFY_INTERFACE_HEADER_SETS OFF)  # the parts' own are
  target_compile_features(velmologic_${kind} INTERFACE cxx_std_20)
  target_compile_definitions(velmologic_${kind} INTERFACE RAPIDJSON_HAS_STDSTRING=1)
  target_include_directories(velmologic_${kind} INTERFACE $<INSTALL_INTERFACE:${header_root}>)
  target_link_libraries(velmologic_${kind} PRIVATE geos_c $<BUILD_INTERFACE:orlix_openmp>)
  if(OpenMP_CXX_FOUND)
    target_link_libraries(velmologic_${kind} PRIVATE $<INSTALL_INTERFACE:OpenMP::OpenMP_CXX>)
  endif()
endforeach()

# Only what front ends use is visible; the list of it is the linker's.
set(export_list ${PROJECT_SOURCE_DIR}/cmake/velmologic.map)
target_link_options(velmologic_shared PRIVATE LINKER:--version-script=${export_list} LINKER:--no-undefined)
set_target_properties(velmologic_shared PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
  LINK_DEPENDS ${export_list})

install(TARGETS velmologic_static velmologic_shared EXPORT VelmoLogic)
foreach(header IN LISTS headers)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${header_root}/${folder})
endforeach()

install(EXPORT VelmoLogic NAMESPACE VelmoLogic:: FILE VelmoLogicTargets.cmake
  DESTINATION ${package_folder})
configure_package_config_file(cmake/VelmoLogicConfig.cmake.in VelmoLogicConfig.cmake
  INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(VelmoLogicConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VelmoLogicConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/VelmoLogicConfigVersion.cmake
  DESTINATION ${package_folder})

file(RELATIVE_PATH pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
set(pc_private_libs "-lgeos_c ${OpenMP_CXX_FLAGS}")
configure_file(cmake/velmologic.pc.in velmologic.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/velmologic.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(VELMO_BUILD_TESTS)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  add_test(NAME package
    COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tools/test/package_test.py
            ${CMAKE_COMMAND} ${CMAKE_CXX_COMPILER} ${CMAKE_NM} ${PROJECT_BINARY_DIR})
  find_program(DOXYGEN doxygen)
  if(DOXYGEN)
    add_test(NAME api_pages COMMAND ${DOXYGEN} docs/Doxyfile WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  else()
    add_test(NAME api_pages COMMAND ${CMAKE_COMMAND} -E echo "doxygen is not installed: skipped")
    set_tests_properties(api_pages PROPERTIES SKIP_REGULAR_EXPRESSION "skipped")
  endif()
  set_tests_properties(package api_pages PROPERTIES LABELS package)
endif()
