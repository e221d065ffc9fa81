# What is installed: library, headers, platform headers, CMake package, pkg-config file, licence,
# pages of docs/ for callers, what debuggers show of each class.
include(CMakePackageConfigHelpers)

set(_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/vexmath")

install(TARGETS vexmath vexmath_strict_fp EXPORT vexmath-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/vexmath" "${VEXMATH_PLATFORM_HEADERS}/vexmath_platform"
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.h")

foreach(_page LICENSE docs/c.md docs/coming-from.md docs/debugging.md docs/interop.md docs/quirks.md)
  install(FILES "${PROJECT_SOURCE_DIR}/${_page}" DESTINATION ${CMAKE_INSTALL_DOCDIR})
endforeach()

install(EXPORT vexmath-targets NAMESPACE vexmath:: DESTINATION ${_package_dir})
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/vexmath-config.cmake.in" "${PROJECT_BINARY_DIR}/vexmath-config.cmake"
  INSTALL_DESTINATION ${_package_dir}
  NO_SET_AND_CHECK_MACRO)
configure_file("${CMAKE_CURRENT_LIST_DIR}/vexmath-config-version.cmake.in"
  "${PROJECT_BINARY_DIR}/vexmath-config-version.cmake" @ONLY)
install(FILES
  "${PROJECT_BINARY_DIR}/vexmath-config.cmake"
  "${PROJECT_BINARY_DIR}/vexmath-config-version.cmake"
  DESTINATION ${_package_dir})

set(VEXMATH_PC_DEFINITIONS "")
if(NOT BUILD_SHARED_LIBS)
  set(VEXMATH_PC_DEFINITIONS " -DVEXMATH_STATIC")
endif()
# The prefix is found from the place of the file, so that the installed tree can be moved.
file(RELATIVE_PATH VEXMATH_PC_TO_PREFIX
  "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" VEXMATH_PC_TO_PREFIX "${VEXMATH_PC_TO_PREFIX}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/vexmath.pc.in" "${PROJECT_BINARY_DIR}/vexmath.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/vexmath.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

set(_debugger_dir "${CMAKE_INSTALL_DATADIR}/vexmath/debugger")
install(FILES
  "${PROJECT_SOURCE_DIR}/debugger/vexmath_texts.py"
  "${PROJECT_SOURCE_DIR}/debugger/vexmath_gdb.py"
  "${PROJECT_SOURCE_DIR}/debugger/vexmath_lldb.py"
  "${PROJECT_SOURCE_DIR}/debugger/vexmath.natvis"
  DESTINATION ${_debugger_dir})
# gdb runs the script that lies beside the library and has its name, so that the installed tree can
# be moved. Below /usr it trusts only scripts in a folder of its own, by the library's path.
if(BUILD_SHARED_LIBS)
  set(_library_dir "${CMAKE_INSTALL_LIBDIR}")
  if(WIN32)
    set(_library_dir "${CMAKE_INSTALL_BINDIR}")
  endif()
  file(RELATIVE_PATH VEXMATH_LIBRARY_TO_DEBUGGER
    "/prefix/${_library_dir}" "/prefix/${_debugger_dir}")
  configure_file("${PROJECT_SOURCE_DIR}/debugger/load_in_gdb.py.in"
    "${PROJECT_BINARY_DIR}/load_in_gdb.py" @ONLY)
  install(CODE "
    set(folder \"\${CMAKE_INSTALL_PREFIX}/${_library_dir}\")
    if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
      string(PREPEND folder \"/usr/share/gdb/auto-load\")
    endif()
    file(INSTALL DESTINATION \"\${folder}\" TYPE FILE
      RENAME \"$<TARGET_FILE_NAME:vexmath>-gdb.py\"
      FILES \"${PROJECT_BINARY_DIR}/load_in_gdb.py\")")
endif()

# Archives of the installed tree: cpack in the build folder makes one.
if(PROJECT_IS_TOP_LEVEL)
  set(CPACK_GENERATOR TGZ)
  if(WIN32)
    set(CPACK_GENERATOR ZIP)
  endif()
  string(TOLOWER "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" _system)
  set(CPACK_PACKAGE_FILE_NAME "vexmath-${PROJECT_VERSION}-${_system}")
  set(CPACK_PACKAGE_VENDOR "The vexmath developers")
  set(CPACK_STRIP_FILES ON)
  include(CPack)
endif()
