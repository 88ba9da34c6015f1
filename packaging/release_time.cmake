# SPDX-FileCopyrightText: 2026 the Nordika authors
# SPDX-License-Identifier: MIT

# cpack reads this file. Packaged files get the time of the release, not the time
# of the build.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  set(ENV{SOURCE_DATE_EPOCH} ${CPACK_NORDIKA_RELEASE_TIME})
endif()
