# SPDX-FileCopyrightText: 2026 the Nordika authors
# SPDX-License-Identifier: MIT

# The language is described once, in the README: sets `language` to that section,
# without its heading.
set(page "${PROJECT_SOURCE_DIR}/README.md")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${page}")
file(READ "${page}" language)
if(NOT language MATCHES "\n## The expression language\n(.*)\n## The run log\n")
  message(FATAL_ERROR "README.md has no section on the expression language")
endif()
set(language "${CMAKE_MATCH_1}")
