// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/shared_text.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "number/six_digits.h"

namespace nordika::detail {

Text SharedTexts::add(const Part& part) {
  parts.push_back(part);
  parts.back().length = std::min(part.length, kLongest + 1);
  return static_cast<Text>(parts.size() - 1);
}

Text SharedTexts::number(double x) {
  char digits[kSixDigitsLength];
  numbers.emplace_back(digits, writeSixDigits(digits, std::abs(x)));
  return word(numbers.back());
}

Text SharedTexts::join(Text left, char sign, Text right) {
  return add({{}, left, right, sign, parts[left].length + 1 + parts[right].length});
}

Text SharedTexts::call(std::string_view name, Text inner) {
  return add({name, inner, kNoText, '(', name.size() + 2 + parts[inner].length});
}

std::string SharedTexts::write(Text text) const {
  if (parts[text].length > kLongest) throw std::length_error("derivative");
  struct Step {
    Text text;
    char sign;  // where there is no text
  };
  std::string written;
  written.reserve(parts[text].length);
  std::vector<Step> ahead = {{text, 0}};
  while (!ahead.empty()) {
    const Step step = ahead.back();
    ahead.pop_back();
    if (step.text == kNoText) {
      if (step.sign != 0) written += step.sign;
      continue;
    }
    const Part& part = parts[step.text];
    written += part.name;
    if (part.sign == '(') {
      ahead.insert(ahead.end(), {{kNoText, ')'}, {part.left, 0}, {kNoText, '('}});
    } else if (part.sign != 0) {
      ahead.insert(ahead.end(), {{part.right, 0}, {kNoText, part.sign}, {part.left, 0}});
    }
  }
  return written;
}

}  // namespace nordika::detail
