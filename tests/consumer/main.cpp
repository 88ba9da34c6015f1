// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT
#include <matrix/matrix.h>

int answer();

int main() {
  [[maybe_unused]] const Program program;
  [[maybe_unused]] const Trace trace;
  return answer() < 0;
}
