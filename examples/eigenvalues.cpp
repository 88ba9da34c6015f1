// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// Computes the eigenvalues of the symmetric matrix
//
//    2 -1  0
//   -1  2 -1
//    0 -1  2
//
// by the Jacobi method and by QR iterations. They are 2 - √2, 2 and 2 + √2. The
// iterations go to the standard error stream.

#include <complex>
#include <iostream>
#include <nordika/matrix.h>
#include <vector>

int main() {
  Matrix A(3);
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j)
      A(i, j) = i == j ? 2 : (i - j == 1 || j - i == 1) ? -1 : 0;
  }

  int rotations = 0;
  std::vector<double> eigenvalues;
  Matrix eigenvectors;
  getEigenvaluesWithJacobi(A, 1e-5, eigenvalues, eigenvectors, rotations);
  std::cout << "Jacobi, " << rotations << " rotations:\n";
  for (int i = 0; i < 3; ++i) {
    std::cout << eigenvalues.at(static_cast<std::size_t>(i)) << ", vector (" << eigenvectors(0, i)
              << ", " << eigenvectors(1, i) << ", " << eigenvectors(2, i) << ")\n";
  }

  int iterations = 0;
  std::vector<std::complex<double>> roots;
  getEigenvaluesWithQR(A, 1e-5, roots, iterations);
  std::cout << "QR, " << iterations << " iterations:\n";
  for (const std::complex<double>& root : roots)
    std::cout << root.real() << (root.imag() < 0 ? " - " : " + ") << std::abs(root.imag()) << "i\n";
}
