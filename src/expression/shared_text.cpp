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
  struct Place {
    Text text;
    std::size_t begin;
  };
  std::string written(parts[text].length, ' ');
  std::vector<Place> ahead = {{text, 0}};
  while (!ahead.empty()) {
    const Place place = ahead.back();
    ahead.pop_back();
    const Part& part = parts[place.text];
    written.replace(place.begin, part.name.size(), part.name);
    if (part.sign == '(') {
      const std::size_t opening = place.begin + part.name.size();
      written[opening] = '(';
      written[place.begin + part.length - 1] = ')';
      ahead.push_back({part.left, opening + 1});
    } else if (part.sign != '\0') {
      const std::size_t middle = place.begin + parts[part.left].length;
      written[middle] = part.sign;
      ahead.push_back({part.left, place.begin});
      ahead.push_back({part.right, middle + 1});
    }
  }
  return written;
}

}  // namespace nordika::detail
