// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_SOLVER_PRECONDITION_H
#define NORDIKA_SOLVER_PRECONDITION_H

#include <cassert>

/// As assert(), but alive in every build. Users report a broken precondition by
/// the text that the C library prints. The line and the signature in that text
/// are therefore data: they stay when this file or the compiler changes.
#define NORDIKA_PRECONDITION(condition, line, signature) \
  ((condition) ? static_cast<void>(0)                    \
               : __assert_fail(#condition, "src/solver/solver.cpp", line, signature))

#endif
