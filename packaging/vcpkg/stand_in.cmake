# Runs the port without vcpkg, with plain versions of the functions that it calls. The folders are
# those of vcpkg. Only one configuration is built: a copy of it stands for the debug one.
#   cmake -D CURRENT_PACKAGES_DIR=<folder> -D WORK=<folder> -P stand_in.cmake
set(CURRENT_PORT_DIR "${CMAKE_CURRENT_LIST_DIR}/vexmath")

function(run)
  execute_process(COMMAND ${ARGV} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(vcpkg_cmake_configure)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "SOURCE_PATH" "OPTIONS")
  run("${CMAKE_COMMAND}" -S "${arg_SOURCE_PATH}" -B "${WORK}" -G Ninja -DCMAKE_BUILD_TYPE=Release
    -DBUILD_SHARED_LIBS=ON -DCMAKE_INSTALL_LIBDIR=lib
    "-DCMAKE_INSTALL_PREFIX=${CURRENT_PACKAGES_DIR}" ${arg_OPTIONS})
endfunction()

function(vcpkg_cmake_install)
  run("${CMAKE_COMMAND}" --build "${WORK}" --target install --parallel 2)
  file(GLOB folders "${CURRENT_PACKAGES_DIR}/*")
  file(COPY ${folders} DESTINATION "${CURRENT_PACKAGES_DIR}/debug")
endfunction()

function(vcpkg_replace_string file match replacement)
  file(READ "${file}" text)
  string(REPLACE "${match}" "${replacement}" text "${text}")
  file(WRITE "${file}" "${text}")
endfunction()

# The CMake files move to share/vexmath, two folders below the prefix instead of three.
function(vcpkg_cmake_config_fixup)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "CONFIG_PATH" "")
  file(COPY "${CURRENT_PACKAGES_DIR}/${arg_CONFIG_PATH}/"
    DESTINATION "${CURRENT_PACKAGES_DIR}/share/vexmath")
  file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/${arg_CONFIG_PATH}")
  file(GLOB files "${CURRENT_PACKAGES_DIR}/share/vexmath/*.cmake")
  foreach(file IN LISTS files)
    vcpkg_replace_string("${file}" "\${CMAKE_CURRENT_LIST_DIR}/../../../"
      "\${CMAKE_CURRENT_LIST_DIR}/../../")
    file(READ "${file}" text)
    string(REGEX REPLACE "(get_filename_component\\(_IMPORT_PREFIX \"\\\${_IMPORT_PREFIX}\" PATH\\)\n)(get_filename_component\\(_IMPORT_PREFIX \"\\\${_IMPORT_PREFIX}\" PATH\\)\n)"
      "\\1" text "${text}")
    file(WRITE "${file}" "${text}")
  endforeach()
endfunction()

function(vcpkg_fixup_pkgconfig)
endfunction()

function(vcpkg_install_copyright)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "FILE_LIST")
  file(COPY_FILE "${arg_FILE_LIST}" "${CURRENT_PACKAGES_DIR}/share/vexmath/copyright")
endfunction()

include("${CURRENT_PORT_DIR}/portfile.cmake")
