// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_EXPRESSION_SHARED_TEXT_H
#define NORDIKA_EXPRESSION_SHARED_TEXT_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace nordika::detail {

/// A text of a SharedTexts.
using Text = std::uint32_t;

/// No text.
inline constexpr Text kNoText = 0;

/// Texts of expressions that are made of each other. A text takes the same memory
/// whatever its length, and its length is known before it is written.
class SharedTexts {
 public:
  /// The longest text that write() writes.
  static constexpr std::size_t kLongest = 16'000'000;

  /// The text of a name. The characters must live as long as this object.
  Text word(std::string_view name) { return add({name, kNoText, kNoText, '\0', name.size()}); }

  /// The text of |x|, with six significant digits.
  Text number(double x);

  /// "left sign right"; the left one may be kNoText.
  Text join(Text left, char sign, Text right);

  /// "name(inner)"; parentheses alone for an empty name, which lives as in word().
  Text call(std::string_view name, Text inner);

  /// The characters of the text.
  /// @throws std::length_error for more than kLongest of them
  std::string write(Text text) const;

 private:
  struct Part {
    std::string_view name;
    Text left, right;
    char sign;           // '(' of a call, '\0' of a name alone
    std::size_t length;  // kLongest + 1 stands for all that are too long
  };

  Text add(const Part& part);

  std::vector<Part> parts = {{}};
  std::deque<std::string> numbers;
};

}  // namespace nordika::detail

#endif
