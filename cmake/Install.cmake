# What a host installs: the component, its public headers, the platform library, the loader and a CMake package.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/hvAutoNotifyCtrl6")
set(header_dir "${CMAKE_INSTALL_INCLUDEDIR}/hvAutoNotifyCtrl6")

set(inner_list "${CMAKE_CURRENT_LIST_DIR}/inner_headers.txt")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${inner_list}")
file(STRINGS "${inner_list}" inner_headers REGEX "^src/")
list(JOIN inner_headers "$|/" inner_headers)
foreach(folder platform contract control)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/${folder}" DESTINATION "${header_dir}"
    FILES_MATCHING PATTERN "*.h" REGEX "/${inner_headers}$" EXCLUDE)
endforeach()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/host/loader" DESTINATION "${header_dir}/host"
  FILES_MATCHING PATTERN "*.h")

install(TARGETS hvAutoNotifyCtrl6 LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(FILES $<TARGET_FILE:autonotify_platform> $<TARGET_FILE:autonotify_loader>
  DESTINATION "${CMAKE_INSTALL_LIBDIR}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/hvAutoNotifyCtrl6Config.cmake.in"
  "${PROJECT_BINARY_DIR}/hvAutoNotifyCtrl6Config.cmake" INSTALL_DESTINATION "${package_dir}"
  PATH_VARS CMAKE_INSTALL_LIBDIR header_dir)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/hvAutoNotifyCtrl6ConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/hvAutoNotifyCtrl6Config.cmake"
  "${PROJECT_BINARY_DIR}/hvAutoNotifyCtrl6ConfigVersion.cmake" DESTINATION "${package_dir}")
