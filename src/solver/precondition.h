// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_SOLVER_PRECONDITION_H
#define NORDIKA_SOLVER_PRECONDITION_H

#include <cassert>

/// As assert(), but alive in every build. Users report a broken precondition by
/// the text that the C library prints: condition, file, line and signature. File,
/// line and signature are therefore data; they stay when the source or the
/// compiler changes. The names in a condition must stay, too.
#define NORDIKA_PRECONDITION(condition, line, signature) \
  ((condition) ? static_cast<void>(0)                    \
               : __assert_fail(#condition, "src/solver/solver.cpp", line, signature))

#endif
