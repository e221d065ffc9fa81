# An overlay port, which builds the tree that it is part of:
#   vcpkg install vexmath --overlay-ports=packaging/vcpkg
get_filename_component(SOURCE_PATH "${CURRENT_PORT_DIR}/../../.." ABSOLUTE)
vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS -DVEXMATH_BUILD_TESTS=OFF -DVEXMATH_BUILD_EXAMPLES=OFF -DVEXMATH_BUILD_APPS=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/vexmath)
vcpkg_fixup_pkgconfig()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
# The debug library shares the folder of what gdb shows with the release one.
file(GLOB loaders "${CURRENT_PACKAGES_DIR}/debug/*/*-gdb.py")
foreach(loader IN LISTS loaders)
  vcpkg_replace_string("${loader}" "../share" "../../share")
endforeach()
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
