// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// Finds an intersection of the circle x1² + x2² = a and the parabola x2 = x1² by
// Newton's method. The functions are given as text. The iterations go to the
// standard error stream, the solution to the standard output.

#include <cstdlib>
#include <iostream>
#include <nordika/solver.h>
#include <string>
#include <vector>

int main() {
  const std::string parameters = "a = 2";
  const auto function = [&](const char* text) { return Function(text, parameters); };
  try {
    NewtonProblem problem({function("x1^2+x2^2-a"), function("x2-x1^2")}, {2, 1},
                          {{function("2*x1"), function("2*x2")},  //
                           {function("-2*x1"), function("1")}});
    int iterations = 0;
    const std::vector<double> x = solve_nonlinear_system_newton(problem, 1e-5, iterations);
    std::cout << "x1 = " << x[0] << ", x2 = " << x[1] << " after " << iterations << " iterations\n";
  } catch (const ExpressionUnknownVariable& fault) {
    std::cout << "No value for " << fault.name << ".\n";
    return EXIT_FAILURE;
  } catch (const ExpressionWrongFormat&) {
    std::cout << "A function is not an expression.\n";
    return EXIT_FAILURE;
  } catch (const ExpressionBadResult&) {
    std::cout << "A function has no finite value on the way.\n";
    return EXIT_FAILURE;
  } catch (const MatrixIsSingular&) {
    std::cout << "The Jacobi matrix is singular on the way.\n";
    return EXIT_FAILURE;
  } catch (const MaxItersCountAchieved&) {
    std::cout << "No convergence.\n";
    return EXIT_FAILURE;
  }
}
