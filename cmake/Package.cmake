# The Debian packages, which tools/package makes: the programs without a screen, what other hosts are
# built with, and the desktop.
option(AUTONOTIFY_PACKAGE "Install what Debian packages have besides" OFF)
set(AUTONOTIFY_MAINTAINER "Client Notifications <notifications@localhost>" CACHE STRING "Who answers for the packages")
if(NOT AUTONOTIFY_PACKAGE)
  return()
endif()

set(debian_dir "${CMAKE_CURRENT_LIST_DIR}/debian")
string(TIMESTAMP package_date "%a, %d %b %Y 00:00:00 +0000" UTC)
find_program(GZIP gzip REQUIRED)

# The papers of a package: every one has its own.
function(autonotify_papers component package)
  set(PACKAGE "${package}")
  set(PACKAGE_DATE "${package_date}")
  set(changelog "${PROJECT_BINARY_DIR}/papers/${package}/changelog")
  configure_file("${debian_dir}/changelog.in" "${changelog}" @ONLY)
  execute_process(COMMAND "${GZIP}" -9nf "${changelog}" COMMAND_ERROR_IS_FATAL ANY)
  install(FILES "${changelog}.gz" "${debian_dir}/copyright" COMPONENT ${component}
    DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${package}")
endfunction()
autonotify_papers(program hvautonotify)
autonotify_papers(development hvautonotify-dev)
autonotify_papers(desktop hvautonotify-desktop)

install(FILES "${debian_dir}/hvautonotify-send.service" "${debian_dir}/hvautonotify-send.timer"
  DESTINATION /lib/systemd/system)
install(FILES "${debian_dir}/hvautonotify.default" DESTINATION /etc/default RENAME hvautonotify)

set(CPACK_GENERATOR DEB)
# Some files stand outside of the prefix.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL program development desktop)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${AUTONOTIFY_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME hvautonotify)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS adduser)
# Documents are drawn with what fonts there are: these have Chinese, Japanese and symbols too, and
# their text stays text in a PDF; those below also have Korean, Thai and the scripts of India.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "fonts-dejavu-core, fonts-droid-fallback, fonts-symbola")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS "fonts-noto-core, fonts-noto-cjk, hvautonotify-desktop, postgresql")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_CONTROL_EXTRA "${debian_dir}/conffiles;${debian_dir}/triggers;${debian_dir}/postinst;${debian_dir}/prerm;${debian_dir}/postrm")
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "client notices of an accounting firm
Works out when each client of an accounting firm must hear of a task, composes
the notice from the firm's own records, keeps it for review and sends it by
email, or prints it as a fax or a letter.

This package has the console program hvnotify, the component that hosts load,
and a timer for the nightly run, which is off until it is enabled.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME hvautonotify-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "hvautonotify (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "cmake, libsqlitecpp-dev, libpqxx-dev, libpq-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "client notices of an accounting firm (development files)
Works out when each client of an accounting firm must hear of a task, composes
the notice from the firm's own records, keeps it for review and sends it.

This package has headers, static libraries and a CMake package for
applications that load the component, with or without its databases.")

set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME hvautonotify-desktop)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "hvautonotify (= ${PROJECT_VERSION}), libqt6svg6")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS qt6-translations-l10n)
set(CPACK_COMPONENT_DESKTOP_DESCRIPTION "client notices of an accounting firm (desktop)
Works out when each client of an accounting firm must hear of a task, composes
the notice from the firm's own records, keeps it for review and sends it.

This package has the desktop for the firm's staff.")
include(CPack)
