// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// Square matrices, vectors and the methods of linear algebra.
///
/// Where nothing else is said, an operation on vectors takes a number of arithmetic
/// operations of order n, and one on matrices of order n².

#ifndef NORDIKA_MATRIX_H
#define NORDIKA_MATRIX_H

#include <complex>
#include <cstddef>
#include <initializer_list>
#include <vector>

namespace nordika {

/// The number of iterations that the iterative methods for linear systems and
/// for eigenvalues compute at most. This is intentionally one more than kMaxIterations.
/// The accuracy is tested before the limit, so the last one may still succeed.
inline constexpr int kMaxLinearIterations = 100001;

namespace detail {
class LupSolver;
}

}  // namespace nordika

/// Two vectors of different lengths were given to a product of vectors.
class VectorWrongDimensions {};

/// A row or column index lies outside 0 to n-1.
class MatrixIndexOutOfBound {};

/// The operands have different dimensions, or a matrix has a row of another length.
/// The sum and the difference of two vectors throw this one too.
class MatrixWrongDimensions {};

/// A column holds no pivot of magnitude at least 1e-8.
class MatrixIsSingular {};

/// An element outside the three middle diagonals is not 0.
class MatrixIsNotTridiagonal {};

/// Two elements opposite each other differ by more than 1e-5.
class MatrixIsNotSymmetrical {};

/// An iterative method has not reached the accuracy within its limit of
/// iterations. The nonlinear solvers throw it too.
class MaxItersCountAchieved {};

/// A square n × n matrix of doubles, held by rows; indices count from 0.
/// Copies are deep.
///
/// A row can be assigned. If it is shorter than n afterwards, every operation and every
/// function below throws MatrixWrongDimensions, except the access to rows and elements.
/// Of a row that is longer, the first n elements count.
class Matrix {
 public:
  /// The matrix of dimension 0.
  Matrix() = default;

  /// The n × n matrix of zeros.
  /// @throws std::bad_alloc for n < 0
  explicit Matrix(int n);

  /// The matrix of these rows: Matrix{{2, -1}, {-1, 2}}.
  /// @throws MatrixWrongDimensions for a row of another length than their number
  Matrix(std::initializer_list<std::vector<double>> elements);

  /// Row i, a vector of n elements; the column index within it is not checked.
  /// @throws MatrixIndexOutOfBound for i outside 0 .. n-1
  std::vector<double>& operator[](int i) {
    if (i < 0 || i >= dimension()) throw MatrixIndexOutOfBound();
    return rows[static_cast<std::size_t>(i)];
  }
  /// @copydoc operator[](int)
  const std::vector<double>& operator[](int i) const {
    if (i < 0 || i >= dimension()) throw MatrixIndexOutOfBound();
    return rows[static_cast<std::size_t>(i)];
  }

  /// Element j of row i; only i is checked.
  /// @throws MatrixIndexOutOfBound for i outside 0 .. n-1
  double& operator()(int i, int j) { return (*this)[i].begin()[j]; }
  /// @copydoc operator()(int, int)
  double operator()(int i, int j) const { return (*this)[i].begin()[j]; }

  /// The number n of rows and of columns.
  int dimension() const { return static_cast<int>(rows.size()); }

  /// The product with a column vector of length n, its sums in index order.
  /// @throws MatrixWrongDimensions for a vector of another length
  std::vector<double> operator*(const std::vector<double>& v) const;

  /// Every element multiplied by s.
  Matrix operator*(const double& s) const;

  /// The matrix product, its sums in index order; of order n³.
  /// @throws MatrixWrongDimensions for a matrix of another dimension
  Matrix operator*(const Matrix& b) const;

  /// The element-wise sum.
  /// @throws MatrixWrongDimensions for a matrix of another dimension
  Matrix operator+(const Matrix& b) const;

  /// The element-wise difference.
  /// @throws MatrixWrongDimensions for a matrix of another dimension
  Matrix operator-(const Matrix& b) const;

  /// The transpose, t[i][j] = a[j][i].
  Matrix transposed() const;

  /// Exchanges rows i and j; i = j changes nothing. Of order n.
  /// @throws MatrixIndexOutOfBound for an index outside 0 .. n-1
  void swapRows(int i, int j);

  /// Exchanges columns i and j; i = j changes nothing. Of order n.
  /// @throws MatrixIndexOutOfBound for an index outside 0 .. n-1
  void swapColumns(int i, int j);

  /// Overwrites column j with v (length n); the dimension stays as it is.
  /// Of order n.
  /// @throws MatrixIndexOutOfBound for j outside 0 .. n-1, tested first
  /// @throws MatrixWrongDimensions for a vector of another length
  void insertColumn(int j, const std::vector<double>& v);

  /// Rounds every element to two decimals with round(double, int).
  void doRound();

  /// True when every element with |i - j| > 1 equals 0; NaN does not.
  bool isTridiagonal() const;

  /// True when no pair a[i][j], a[j][i] differs by more than 1e-5, an absolute
  /// tolerance. A difference that is NaN counts as none.
  bool isSymmetrical() const;

 private:
  friend class nordika::detail::LupSolver;

  template <typename Operation>
  Matrix combined(const Matrix& b, Operation operation) const;

  // Makes this the product; neither factor is this. Memory is reused.
  void assignProduct(const Matrix& a, const Matrix& b);
  void checkIndices(int i, int j) const;
  void checkDimension(std::size_t n) const;

  std::vector<std::vector<double>> rows;
};

/// The scalar product of two vectors of one length, summed in index order.
/// @throws VectorWrongDimensions for different lengths
double dotProduct(const std::vector<double>& u, const std::vector<double>& v);

/// The element-wise sum of two vectors of one length.
/// @throws MatrixWrongDimensions for different lengths
std::vector<double> operator+(const std::vector<double>& u, const std::vector<double>& v);

/// The element-wise difference of two vectors of one length.
/// @throws MatrixWrongDimensions for different lengths
std::vector<double> operator-(const std::vector<double>& u, const std::vector<double>& v);

/// The maximum norm, max |v[i]|. NaN elements are passed over; 0 for n = 0.
double norm(const std::vector<double>& v);

/// The square of the Euclidean length, the sum of v[i]² without a root.
double norm2(const std::vector<double>& v);

/// The maximum absolute row sum; 0 for dimension 0.
double norm(const Matrix& a);

/// The root of the sum of squares of the elements strictly below the diagonal:
/// the off-diagonal mass of a symmetric matrix, of one triangle.
double off(const Matrix& a);

/// The identity matrix of dimension n.
/// @throws std::bad_alloc for n < 0
Matrix getIdentityMatrix(int n);

/// The outer product m[i][j] = u[i]·v[j] of two vectors of length n, n × n.
/// @throws VectorWrongDimensions for different lengths
Matrix tensor_product(const std::vector<double>& u, const std::vector<double>& v);

/// x rounded to so many decimal digits, halves away from zero: the rounded
/// product x·p divided by p, where p is 10 to the power `digits`. The product
/// is a double: round(1.005, 2) is 1.
double round(double x, int digits);

/// -1 for x < 0 and for NaN, else +1; both zeros give +1.
int sign(const double& x);

/// Factorises A (n × n) as P·A = L·U by Gaussian elimination with partial
/// pivoting (Golub, Van Loan, Matrix Computations, 4th ed., section 3.4). Of
/// equal candidates the upper row is the pivot. Cost: of order n³.
///
/// The outputs are replaced whatever they held; each may be A itself. L is unit lower
/// triangular, U upper triangular up to the rounding residues of the eliminated
/// elements, which are kept; P is the identity with its rows exchanged; `swaps` counts
/// the exchanges of two different rows.
/// @throws MatrixIsSingular where a column holds no pivot of magnitude at
///   least 1e-8; the outputs then keep the state reached in that column
void LUPdecomposition(const Matrix& A, Matrix& L, Matrix& U, Matrix& P, int& swaps);

/// Solves L·U·x = P·b by forward and back substitution, for the factors
/// (n × n) of LUPdecomposition() and b of length n. Cost: of order n².
/// @return x, of length n
/// @throws MatrixWrongDimensions for factors or a vector of another size
std::vector<double> solveWithLUP(const Matrix& L, const Matrix& U, const Matrix& P,
                                 const std::vector<double>& b);

/// Solves A·x = b for A n × n and b of length n, and writes L, U, P and the
/// product P·L·U to the standard error stream. Cost: of order n³; a trace that is
/// discarded saves the two products.
/// @return x, of length n
/// @throws MatrixIsSingular as LUPdecomposition() does, after the start line
/// @throws MatrixWrongDimensions for a vector of another length, after the
///   whole trace; for a row that is too short, after the start line
std::vector<double> solveWithLUP(const Matrix& A, const std::vector<double>& b);

/// The determinant of A (n × n): the product of the diagonal of U in order,
/// its sign turned for an odd number of exchanges (Golub, Van Loan, section
/// 3.4); 1 for n = 0. Cost: of order n³.
/// @throws MatrixIsSingular as LUPdecomposition() does: a determinant too near
///   to 0 is not returned
double calcDeterminantWithLUP(const Matrix& A);

/// The inverse of A (n × n), solved for column by column with one
/// factorisation (Golub, Van Loan, section 3.4); empty for n = 0. Cost: of order n³.
/// @throws MatrixIsSingular as LUPdecomposition() does
Matrix calcInverseMatrixWithLUP(const Matrix& A);

/// Solves A·x = d for a tridiagonal A (n × n) and d of length n by elimination
/// without pivoting (Press et al., Numerical Recipes, 3rd ed., section 2.4), and
/// writes the coefficients of x[i] = P[i]·x[i+1] + Q[i] and the solution to the
/// standard error stream.
///
/// A dominant diagonal keeps the sweep stable. A zero denominator is not looked
/// for: the infinity or NaN that it makes flows into the solution. Cost: of order n,
/// after a look at all n² elements.
/// @return x, of length n
/// @throws MatrixWrongDimensions for a vector of another length, before
///   anything is written; for a row that is too short, after the start line
/// @throws MatrixIsNotTridiagonal after the start line
/// @throws MatrixIndexOutOfBound for n = 0, after the start line
std::vector<double> solveTridiagonalMatrixAlgo(const Matrix& A, const std::vector<double>& d);

/// Solves A·x = b for A n × n and b of length n by simple iterations, known as
/// Jacobi's (Golub, Van Loan, section 11.2), and writes every iteration to the
/// standard error stream.
///
/// With D the diagonal of A, B = I - D^-1·A and beta = D^-1·b, an iteration is
/// x = B·x + beta, all components from the last approximation, which starts as
/// b. It ends when eps > q / (1 - q) · |x - last|, where q is the norm of B and
/// both norms are maximum norms (B. P. Demidovich, I. A. Maron, Computational
/// Mathematics, chapter 9); for q >= 1, which promises no convergence, the
/// factor is 1. A zero on the diagonal is not looked for; an estimate that is
/// NaN ends nothing. Cost: of order n³ for B, then n² for an iteration.
/// @param iters the number of iterations done, written on success alone
/// @return x, of length n
/// @throws MatrixWrongDimensions for a vector of another length, before
///   anything is written
/// @throws MaxItersCountAchieved when iteration 100001 still misses eps
std::vector<double> solveSimpleIterations(const Matrix& A, const std::vector<double>& b,
                                          const double& eps, int& iters);

/// As solveSimpleIterations(), the writing included, but by the method of Seidel
/// (Golub, Van Loan, section 11.2): a component that an iteration has renewed
/// serves the rows after it. The factor of the estimate is |C| / (1 - q), C the
/// upper triangle of B, or 1 for q >= 1. Cost: as there.
/// @param iters the number of iterations done, written on success alone
/// @return x, of length n
/// @throws MatrixWrongDimensions for a vector of another length, before
///   anything is written
/// @throws MaxItersCountAchieved when iteration 100001 still misses eps
std::vector<double> solveSiedel(const Matrix& A, const std::vector<double>& b, const double& eps,
                                int& iters);

/// Factorises A (n × n) as Q·R by Householder reflections (Golub, Van Loan,
/// section 5.2). The outputs, which may be A itself, are replaced whatever they
/// held.
///
/// Q is orthogonal; R is upper triangular up to the rounding residues of the
/// eliminated elements, which are kept. A column that is zero on and below the
/// diagonal makes both of NaN. Cost: of order n⁴, as each reflection is multiplied out.
void QRdecomposition(const Matrix& A, Matrix& Q, Matrix& R);

/// Finds the eigenvalues of A (n × n) by the QR algorithm without shifts
/// (Golub, Van Loan, section 7.3), and writes every iterate R·Q to the standard
/// error stream.
///
/// Two rows with an element above 1e-8 below their diagonal are a block with a
/// pair of roots; every other diagonal element is a real root. From the second
/// iteration on, the run ends when both are below eps: the Euclidean norm of the
/// elements below the real roots, and the largest change of a complex root.
/// So eps bounds elements and changes, not the errors of the roots.
///
/// Three or more eigenvalues of one modulus, as of the companion matrix of x³ - 2 or
/// 3, 3, -3, give wrong roots without an exception. For a symmetric matrix take
/// getEigenvaluesWithJacobi(). Cost: of order n⁴ for an iteration.
/// @param roots the n eigenvalues in the order of the diagonal, written on
///   success alone
/// @param iters the number of iterations done, written on success alone
/// @throws MaxItersCountAchieved when iteration 100001 still misses eps
/// @throws MatrixWrongDimensions for a row that is too short, after the start line
void getEigenvaluesWithQR(const Matrix& A, const double& eps,
                          std::vector<std::complex<double>>& roots, int& iters);

/// Finds the eigenvalues and eigenvectors of a symmetrical A (n × n) by the
/// classical Jacobi method (Golub, Van Loan, section 8.5): every rotation
/// clears the off-diagonal element of largest magnitude, until eps > off(M) for
/// the rotated matrix M. Every rotation is written to the standard error
/// stream. Cost: of order n² for a rotation.
/// @param eigenvalues the n diagonal elements of M, unordered; written on
///   success alone
/// @param eigenvectors n × n, may be A itself; column i belongs to eigenvalue
///   i. Untouched for a matrix that is not symmetrical; at the limit the
///   product of the rotations so far
/// @param iters the number of iterations, written only on success. The last one
///   makes no rotation if no pivot is left (n = 0, n = 1).
/// @throws MatrixIsNotSymmetrical after the start line; see
///   Matrix::isSymmetrical() for the tolerance
/// @throws MatrixWrongDimensions for a row that is too short, after the start line
/// @throws MaxItersCountAchieved when rotation 100001 still misses eps
void getEigenvaluesWithJacobi(const Matrix& A, const double& eps, std::vector<double>& eigenvalues,
                              Matrix& eigenvectors, int& iters);

#endif
