// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_JACOBIAN_H
#define NORDIKA_RUN_JACOBIAN_H

#include <string>
#include <vector>

#include "nordika/functions.h"

namespace nordika {

/// The texts of the Jacobi matrix of n functions, n × n, row by row; throws as derivative()
/// does.
std::vector<std::string> derivedJacobian(const std::vector<Function>& functions);

}  // namespace nordika

#endif
