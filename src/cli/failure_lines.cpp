// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/failure_lines.h"

#include <cstdio>
#include <locale>
#include <string_view>

#include "cli/output.h"
#include "run/foreign.h"
#include "run/messages.h"

namespace nordika {

namespace {

std::string index(int i) {
  std::string text = "[";
  return text.append(std::to_string(i + 1)).append("]");
}

// The first character of the text that the language lacks: `: "х" (U+0445) is not of ...`
std::string foreignCharacter(const std::string& text) {
  using Converter = std::codecvt<char32_t, char8_t, std::mbstate_t>;
  const auto& converter = std::use_facet<Converter>(std::locale::classic());
  const std::u8string bytes(text.begin(), text.end());
  const char8_t* const end = bytes.data() + bytes.size();
  for (const char8_t *at = bytes.data(), *next = at; at != end; at = next) {
    std::mbstate_t state = {};
    char32_t character = 0;
    char32_t* decoded = nullptr;
    converter.in(state, at, end, next, &character, &character + 1, decoded);
    const auto offset = static_cast<std::size_t>(at - bytes.data());
    char code[16];
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    if (decoded == &character || isSurrogate) {
      std::snprintf(code, sizeof code, "0x%02X", static_cast<unsigned>(*at));
      return std::string(": byte ") + code + " is not UTF-8";
    }
    if (isOfLanguage(character)) continue;
    std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(character));
    const auto length = static_cast<std::size_t>(next - at);
    return ": \"" + text.substr(offset, length) + "\" (" + code + ") is not of the language";
  }
  return "";
}

}  // namespace

std::string nameOf(const TextPlace& place) {
  return place.isFunction ? "functions" + index(place.row)
                          : "jacobian" + index(place.row) + index(place.column);
}

std::string lineOnText(const Failure& failure) {
  if (!failure.blame) return "";
  const auto& [place, text, x] = *failure.blame;
  std::string line = nameOf(place) + ": \"" + text + "\"";
  if (x.empty()) return line + foreignCharacter(text);
  const bool hasNoValue = failure.message == messages::kBadResult.shown;
  for (std::size_t i = 0; hasNoValue && i < x.size(); ++i)
    line.append(i == 0 ? " at x = (" : "; ").append(shownNumber(x[i]));
  return hasNoValue ? line + ")" : line;
}

std::string lineOnEstimates(const Problem& problem, const Course& course) {
  if (course.smallestAt == 0 || course.smallestAt > problem.maxIterations / 2) return "";
  const std::string line = "the estimates have not fallen below " + shownNumber(course.smallest) +
                           " since iteration " + std::to_string(course.smallestAt);
  // Rounding x to six digits moves it by up to 5e-6 of itself, and the next iterate by
  // somewhat more.
  const bool isRounding = course.smallest < 1e-4 * course.sizeThere;
  return isRounding ? line + ": the functions see six digits of x" : line;
}

}  // namespace nordika
