// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_EXPRESSION_ALGEBRA_H
#define NORDIKA_EXPRESSION_ALGEBRA_H

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "expression/shared_text.h"

namespace nordika::detail {

/// A simplified expression: a sign and a fraction, whose two parts are each a number
/// times factors. A sum is one factor.
struct Term {
  enum class Shape : std::uint8_t { primary, power, product };

  struct Product {
    double number = 1;  // not negative
    Text factors = kNoText;
    Shape shape = Shape::primary;  // of the factors
    bool isUnfolded = false;       // numbers are among the factors; the one in front is 1
    std::uint32_t sum = 0;         // if the factors are one sum: its place, not 0
  };

  bool isNegative = false;
  Product over, under;
};

/// Operations on terms. Each takes the same time, whatever the lengths of its
/// operands, and gives the normal form: to compile the text of a term and to repeat
/// its operations gives the same text.
///
/// Two numbers are folded into one where six digits hold it exactly. A sum or
/// product with two numbers that cannot be folded keeps all its numbers where they
/// are, since another order could fold other pairs.
class Algebra {
 public:
  static Term number(double x) { return {x < 0, {std::abs(x)}, {}}; }
  Term name(std::string_view characters) { return factor(texts.word(characters)); }

  /// Whether the term is a number without an operation, except for its sign.
  static bool isNumber(const Term& term);

  static Term negated(Term term);
  Term sum(const Term& left, const Term& right);
  Term difference(const Term& left, const Term& right) { return sum(left, negated(right)); }
  Term product(const Term& left, const Term& right);
  Term quotient(const Term& left, const Term& right);
  Term power(const Term& base, const Term& exponent);
  Term call(std::string_view function, const Term& operand);

  /// @throws std::length_error for a text longer than SharedTexts::kLongest
  std::string write(const Term& term) { return texts.write(text(term)); }

 private:
  // The sign of the first term is apart, because it becomes an operator in a longer
  // sum.
  struct Sum {
    double number = 0;
    bool isNumberFirst = false;
    bool isNegative = false;
    Text terms = kNoText;
    bool isUnfolded = false;   // numbers are among the terms; the one apart is 0
    std::uint32_t single = 0;  // if there is one term besides the number: its place, not 0
    Text whole = kNoText;
  };

  static Term factor(Text text, Term::Shape shape = Term::Shape::primary);
  static Term reduced(bool isNegative, Term::Product over, Term::Product under);
  Term::Product multiplied(const Term::Product& left, const Term::Product& right);
  bool isSum(const Term& term) const;
  Sum asSum(const Term& term);
  Sum withAllTerms(const Sum& sum);
  Sum joined(const Sum& left, const Sum& right);
  Sum unfolded(const Sum& left, const Sum& right);
  Term fromSum(Sum sum);

  Text text(const Term::Product& product);
  Text text(const Term& term);
  Text unsignedText(const Term& term);
  Text powerOperand(const Term& term, Term::Shape loosest);

  SharedTexts texts;
  std::vector<Sum> sums = {{}};
  std::vector<Term> singles = {{}};
};

}  // namespace nordika::detail

#endif
