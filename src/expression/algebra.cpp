// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/algebra.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "number/six_digits.h"

namespace nordika::detail {

namespace {

using Product = Term::Product;
using Shape = Term::Shape;

// The result if six digits hold it exactly. The operands have six digits and are at
// most `largest`. So an exact result that needs more digits differs from its rounded
// one by at least 1e-14·largest, and the rounding errors of doubles are smaller than
// 5e-16·largest.
std::optional<double> folded(double result, double largest) {
  constexpr double kLeast = 1e-290;  // denormal numbers have larger errors
  const double rounded = roundToSixDigits(result);
  if (std::abs(rounded) < kLeast || !(std::abs(result - rounded) <= 1e-15 * largest)) return {};
  return rounded;
}

std::optional<double> foldedSum(double a, double b) {
  if (a == 0 || b == 0 || a == -b) return a + b;
  const double largest = std::max(std::abs(a), std::abs(b));
  if (std::min(std::abs(a), std::abs(b)) < 1e-8 * largest) return {};  // the sum has more digits
  return folded(a + b, largest);
}

std::optional<double> foldedProduct(double a, double b) {
  if (a == 1 || b == 1) return a * b;
  return folded(a * b, std::abs(a * b));
}

std::optional<double> foldedQuotient(double a, double b) {
  return folded(a / b, std::abs(a / b));
}

std::optional<double> foldedPower(double base, double exponent) {
  constexpr double kMost = 400;  // more than the digits of any double
  if (base == 0 && exponent > 0) return 0;
  if (exponent != std::floor(exponent) || std::abs(exponent) > kMost) return {};
  std::optional<double> power = 1;
  for (double i = 0; i < std::abs(exponent) && power; ++i)
    power = foldedProduct(*power, base);
  if (power && exponent < 0) return foldedQuotient(1, *power);
  return power;
}

bool isOne(const Product& product) {
  return product.number == 1 && product.factors == kNoText;
}

bool isZero(const Term& term) {
  return term.over.number == 0;
}

double valueOf(const Term& number) {
  return number.isNegative ? -number.over.number : number.over.number;
}

char signOf(bool isNegative) {
  return isNegative ? '-' : '+';
}

}  // namespace

Term Algebra::factor(Text text, Shape shape) {
  Term term;
  term.over.factors = text;
  term.over.shape = shape;
  return term;
}

bool Algebra::isNumber(const Term& term) {
  return term.over.factors == kNoText && isOne(term.under);
}

Term Algebra::negated(Term term) {
  term.isNegative = !term.isNegative && !isZero(term);
  return term;
}

Product Algebra::multiplied(const Product& left, const Product& right) {
  if (left.number == 0 || right.number == 0) return {0};
  if (right.isUnfolded && !left.isUnfolded) return multiplied(right, left);
  std::optional<double> number;
  if (!left.isUnfolded) number = foldedProduct(left.number, right.number);
  if (isOne(right) || (number && right.factors == kNoText)) {
    Product scaled = left;
    if (number) scaled.number = *number;
    return scaled;
  }
  if (number && left.factors == kNoText) {
    Product scaled = right;
    scaled.number = *number;
    return scaled;
  }
  if (number) return {*number, texts.join(left.factors, '*', right.factors), Shape::product};
  return {1, texts.join(text(left), '*', text(right)), Shape::product, true};
}

// Divides the numbers. The 1 above a fraction stays: x/2 does not become 0.5*x.
Term Algebra::reduced(bool isNegative, Product over, Product under) {
  if (over.number == 0) return number(0);
  const bool isFraction = over.factors != kNoText || under.factors != kNoText;
  const bool isFixed = over.isUnfolded || under.isUnfolded || (over.number == 1 && isFraction);
  if (!isFixed && under.number != 1) {
    if (const auto ratio = foldedQuotient(over.number, under.number)) {
      over.number = *ratio;
      under.number = 1;
    } else if (const auto inverse = foldedQuotient(under.number, over.number);
               inverse && *inverse == std::floor(*inverse)) {
      over.number = 1;
      under.number = *inverse;
    }
  }
  return {isNegative, over, under};
}

Term Algebra::product(const Term& left, const Term& right) {
  return reduced(left.isNegative != right.isNegative, multiplied(left.over, right.over),
                 multiplied(left.under, right.under));
}

Term Algebra::quotient(const Term& left, const Term& right) {
  return reduced(left.isNegative != right.isNegative, multiplied(left.over, right.under),
                 multiplied(left.under, right.over));
}

Term Algebra::power(const Term& base, const Term& exponent) {
  if (isNumber(exponent)) {
    if (isZero(exponent)) return number(1);
    if (valueOf(exponent) == 1) return base;
  }
  if (isNumber(base)) {
    if (valueOf(base) == 1) return base;
    if (isNumber(exponent)) {
      const auto value = foldedPower(valueOf(base), valueOf(exponent));
      if (value) return number(*value);
    }
  }
  const Text left = powerOperand(base, Shape::primary);
  return factor(texts.join(left, '^', powerOperand(exponent, Shape::power)), Shape::power);
}

Term Algebra::call(std::string_view function, const Term& operand) {
  return factor(texts.call(function, text(operand)));
}

bool Algebra::isSum(const Term& term) const {
  return term.over.sum != 0 && term.over.number == 1 && !term.isNegative && isOne(term.under);
}

Algebra::Sum Algebra::asSum(const Term& term) {
  if (isSum(term)) return sums[term.over.sum];
  Sum sum;
  if (isNumber(term)) {
    sum.number = valueOf(term);
    sum.isNumberFirst = true;
  } else {
    sum.terms = unsignedText(term);
    sum.isNegative = term.isNegative;
  }
  return sum;
}

// The sum with its number among the terms.
Algebra::Sum Algebra::withAllTerms(const Sum& sum) {
  if (sum.number == 0) return sum;
  const Text number = texts.number(sum.number);
  Sum all;
  if (sum.terms == kNoText || sum.isNumberFirst) {
    all.isNegative = sum.number < 0;
    all.terms =
        sum.terms == kNoText ? number : texts.join(number, signOf(sum.isNegative), sum.terms);
  } else {
    all.isNegative = sum.isNegative;
    all.terms = texts.join(sum.terms, signOf(sum.number < 0), number);
  }
  return all;
}

// The terms of both, without their numbers.
Algebra::Sum Algebra::joined(const Sum& left, const Sum& right) {
  Sum both = left.terms == kNoText ? right : left;
  if (left.terms != kNoText && right.terms != kNoText)
    both.terms = texts.join(left.terms, signOf(right.isNegative), right.terms);
  return both;
}

Term Algebra::fromSum(Sum sum) {
  const Sum all = withAllTerms(sum);
  sum.whole = all.isNegative ? texts.join(kNoText, '-', all.terms) : all.terms;
  sums.push_back(sum);
  Term term = factor(texts.call({}, sum.whole));
  term.over.sum = static_cast<std::uint32_t>(sums.size() - 1);
  return term;
}

// Numbers that cannot be folded are where compiling and adding would leave them.
Algebra::Sum Algebra::unfolded(const Sum& left, const Sum& right) {
  if (left.isUnfolded) return joined(left, withAllTerms(right));
  Sum withFirst = joined(left, right);
  withFirst.number = left.number;
  withFirst.isNumberFirst = left.isNumberFirst;
  Sum last;
  last.number = right.number;
  Sum all = joined(withAllTerms(withFirst), withAllTerms(last));
  all.isUnfolded = true;
  return all;
}

Term Algebra::sum(const Term& left, const Term& right) {
  if (isZero(left)) return right;
  if (isZero(right)) return left;
  Sum a = asSum(left);
  Sum b = asSum(right);
  if (b.isUnfolded && !a.isUnfolded) std::swap(a, b);
  if (a.isUnfolded) return fromSum(unfolded(a, b));
  const std::optional<double> number = foldedSum(a.number, b.number);
  if (!number) return fromSum(unfolded(a, b));
  Sum both = joined(a, b);
  if (both.terms == kNoText) return Algebra::number(*number);
  both.number = *number;
  both.isNumberFirst = a.number != 0 && a.isNumberFirst;
  if (a.terms != kNoText && b.terms != kNoText) {
    both.single = 0;
  } else if (both.whole == kNoText) {
    singles.push_back(a.terms == kNoText ? right : left);
    both.single = static_cast<std::uint32_t>(singles.size() - 1);
  }
  if (both.number == 0 && both.single != 0) return singles[both.single];
  return fromSum(both);
}

Text Algebra::text(const Product& product) {
  if (product.factors == kNoText) return texts.number(product.number);
  if (product.number == 1) return product.factors;
  return texts.join(texts.number(product.number), '*', product.factors);
}

Text Algebra::unsignedText(const Term& term) {
  const Text over = text(term.over);
  if (isOne(term.under)) return over;
  const bool isOneFactor = term.under.factors == kNoText ||
                           (term.under.number == 1 && term.under.shape != Shape::product);
  const Text under = text(term.under);
  return texts.join(over, '/', isOneFactor ? under : texts.call({}, under));
}

Text Algebra::text(const Term& term) {
  if (isSum(term)) return sums[term.over.sum].whole;
  const Text withoutSign = unsignedText(term);
  return term.isNegative ? texts.join(kNoText, '-', withoutSign) : withoutSign;
}

// In parentheses unless it binds at least as tightly as `loosest`.
Text Algebra::powerOperand(const Term& term, Shape loosest) {
  const bool isFactor = term.over.factors == kNoText ||
                        (term.over.number == 1 && term.over.shape <= loosest && !isSum(term));
  const bool isBare = isFactor && !term.isNegative && isOne(term.under);
  return isBare ? text(term) : texts.call({}, text(term));
}

}  // namespace nordika::detail
