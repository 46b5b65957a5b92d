# What a host installs: the component, its public headers, the platform library, the loader and a CMake package.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/hvAutoNotifyCtrl6")
set(header_dir "${CMAKE_INSTALL_INCLUDEDIR}/hvAutoNotifyCtrl6")

# Headers of the component's inside stay out.
set(inner_headers "references\\.h$|procedure\\.h$|recordsets\\.h$|rich_texts\\.h$|windows\\.h$|open_window\\.h$|contact_tools\\.h$|template_tools\\.h$|component_objects\\.h$|firm_rules\\.h$|Impl\\.h$")
foreach(folder platform control)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/${folder}" DESTINATION "${header_dir}"
    FILES_MATCHING PATTERN "*.h" REGEX "${inner_headers}" EXCLUDE)
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
