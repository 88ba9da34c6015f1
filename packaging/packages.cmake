# SPDX-FileCopyrightText: 2026 the Nordika authors
# SPDX-License-Identifier: MIT

# Two packages for cpack -G DEB: the program, and the library for other programs.
set(CPACK_PACKAGE_NAME nordika)
set(CPACK_PACKAGE_VENDOR "The Nordika authors")
set(CPACK_PACKAGE_CONTACT "The Nordika authors <nordika@users.noreply.github.com>")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_SOURCE_DIR}/release_time.cmake")
set(CPACK_NORDIKA_RELEASE_TIME ${NORDIKA_RELEASE_TIME})
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL development)
if(NORDIKA_APP)
  list(APPEND CPACK_COMPONENTS_ALL program)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION math)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME nordika)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
# Liberation Sans is the first fallback of Widget::fitFont(): with it every text
# fits the form. The X11 plugin is not linked, so that SHLIBDEPS does not find it.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "fonts-liberation2 | fonts-liberation")
find_package(QT NAMES ${NORDIKA_QT_NAMES} QUIET)
if(QT_VERSION_MAJOR EQUAL 6)
  string(APPEND CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS ", qt6-qpa-plugins")
endif()
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS xdg-user-dirs)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION
"Nordika solves a system of one to four nonlinear equations, typed as text. It
uses the method of simple iterations or Newton's method. It writes each
iteration to a run log. It is made for students and teachers of numerical
methods. The window is in Russian.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libnordika-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libstdc++-12-dev | libstdc++-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
"This package contains the numerics of Nordika as a static C++ library, with
headers, a CMake package and a pkg-config file. The library has three parts:
the expression engine, the solvers of nonlinear systems (simple iterations and
Newton's method), and square matrices (LUP, inverse, QR, eigenvalues, linear
systems).")

include(CPack)
