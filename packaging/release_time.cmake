# SPDX-FileCopyrightText: 2026 the Nordika authors
# SPDX-License-Identifier: MIT

# Read by cpack: what is packaged bears the time of the release, not of the day.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  set(ENV{SOURCE_DATE_EPOCH} ${CPACK_NORDIKA_RELEASE_TIME})
endif()
