# What is installed besides the programs: the component, and for other hosts headers, the libraries of
# host/ and a CMake package.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/hvAutoNotifyCtrl6")
set(header_dir "${CMAKE_INSTALL_INCLUDEDIR}/hvAutoNotifyCtrl6")

set(inner_list "${CMAKE_CURRENT_LIST_DIR}/inner_headers.txt")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${inner_list}")
file(STRINGS "${inner_list}" inner_headers REGEX "^src/")
list(JOIN inner_headers "$|/" inner_headers)
foreach(folder platform contract control)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/${folder}" DESTINATION "${header_dir}" COMPONENT development
    FILES_MATCHING PATTERN "*.h" REGEX "/${inner_headers}$" EXCLUDE)
endforeach()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/host" DESTINATION "${header_dir}" COMPONENT development
  FILES_MATCHING PATTERN "*.h")

# Each library of host/ with those below it, as the table of folders has them: one line of the CMake
# package. What works on databases alone asks for less than the rest.
set(PLAIN_LIBRARIES)
set(DATABASE_LIBRARIES)
set(DESK_LIBRARIES)
foreach(folder IN LISTS AUTONOTIFY_FOLDERS)
  if(NOT folder MATCHES "^(host/|src/platform$)")
    continue()
  endif()
  autonotify_target("${folder}" target)
  install(FILES $<TARGET_FILE:${target}> DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
  autonotify_dependencies("${folder}" names)
  list(TRANSFORM names REPLACE "^autonotify_" "hvAutoNotifyCtrl6::")
  string(REPLACE "autonotify_" "" name "${target}")
  set(group DESK_LIBRARIES)
  if(folder MATCHES "^(host/(loader|words)|src/)")
    set(group PLAIN_LIBRARIES)
  elseif(folder MATCHES "^host/(database|demo)")
    set(group DATABASE_LIBRARIES)
  endif()
  list(JOIN names " " names)
  string(APPEND ${group} "hvautonotify_library(${name} ${names})\n")
endforeach()

install(TARGETS hvAutoNotifyCtrl6 LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/hvAutoNotifyCtrl6Config.cmake.in"
  "${PROJECT_BINARY_DIR}/hvAutoNotifyCtrl6Config.cmake" INSTALL_DESTINATION "${package_dir}"
  PATH_VARS CMAKE_INSTALL_LIBDIR header_dir)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/hvAutoNotifyCtrl6ConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/hvAutoNotifyCtrl6Config.cmake"
  "${PROJECT_BINARY_DIR}/hvAutoNotifyCtrl6ConfigVersion.cmake" DESTINATION "${package_dir}" COMPONENT development)
