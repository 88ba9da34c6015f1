# SPDX-FileCopyrightText: 2026 the Nordika authors
# SPDX-License-Identifier: MIT
execute_process(COMMAND ${program} OUTPUT_VARIABLE output ERROR_VARIABLE trace
  COMMAND_ERROR_IS_FATAL ANY)
file(READ "${expected}" wanted)
if(NOT "${trace}${output}" STREQUAL wanted)
  message(FATAL_ERROR "${program} does not write ${expected} but:\n${trace}${output}")
endif()
