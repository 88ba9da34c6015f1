// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// Finds an intersection of the circle x1² + x2² = a and the parabola x2 = x1² by
// Newton's method. The functions are given as text. The table of iterations is made by
// a watch, which also ends a run after 50 of them. What the method writes by
// itself is discarded.

#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <nordika/solver.h>
#include <nordika/trace.h>
#include <string>
#include <vector>

int main() {
  const std::string parameters = "a = 2";
  const auto function = [&](const char* text) { return Function(text, parameters); };
  const nordika::TraceRedirect silence({});
  const nordika::IterationWatch table([](int k, double estimate, const std::vector<double>& x) {
    std::cout << std::setw(2) << k << std::setw(14) << estimate;
    for (const double element : x)
      std::cout << std::setw(14) << element;
    std::cout << "\n";
    return k < 50;
  });
  std::cout << " k      estimate            x1            x2\n" << std::setprecision(8);
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
  } catch (const nordika::Stopped&) {
    std::cout << "No convergence.\n";
    return EXIT_FAILURE;
  }
}
