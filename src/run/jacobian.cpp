// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "run/jacobian.h"

#include "nordika/derivative.h"

namespace nordika {

std::vector<std::string> derivedJacobian(const std::vector<Function>& functions) {
  std::vector<std::string> texts;
  for (const Function& function : functions) {
    for (std::size_t j = 1; j <= functions.size(); ++j)
      texts.push_back(derivative(function, std::string("x").append(std::to_string(j))));
  }
  return texts;
}

}  // namespace nordika
