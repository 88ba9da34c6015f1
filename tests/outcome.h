// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TESTS_OUTCOME_H
#define NORDIKA_TESTS_OUTCOME_H

#include <array>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "nordika/solver.h"

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// How an action ends: with its result, all digits of it, or in which exception.
template <typename Action>
std::string outcomeOf(Action action) {
  try {
    std::ostringstream result;
    result.precision(17);
    result << action();
    return result.str();
  } catch (const ExpressionWrongFormat&) {
    return "format";
  } catch (const ExpressionBadResult&) {
    return "bad result";
  } catch (const ExpressionUnknownVariable& unknown) {
    return "unknown " + unknown.name;
  } catch (const MatrixIsSingular&) {
    return "singular";
  } catch (const MatrixWrongDimensions&) {
    return "dimensions";
  } catch (const MaxItersCountAchieved&) {
    return "limit";
  } catch (const nordika::Stopped&) {
    return "stopped";
  }
}

inline std::string content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Runs `action` with the standard error stream going to a file.
/// @return what was in the file when the action ended, before anything else
///   could have flushed the stream
template <typename Action>
std::string captureTrace(Action action) {
  std::fflush(stderr);
  std::FILE* const file = std::tmpfile();
  const int saved = dup(fileno(stderr));
  dup2(fileno(file), fileno(stderr));
  action();
  dup2(saved, fileno(stderr));
  close(saved);
  std::string text = content("/proc/self/fd/" + std::to_string(fileno(file)));
  std::fclose(file);
  return text;
}

/// The content of a file of tests/golden.
inline std::string golden(const std::string& name) {
  return content(NORDIKA_GOLDEN_DIR "/" + name);
}

/// The rows of a table of tests/golden. Its cells are parted by " | ".
template <std::size_t columns>
std::vector<std::array<std::string, columns>> rowsOf(const std::string& name) {
  std::istringstream table(golden(name));
  std::vector<std::array<std::string, columns>> rows;
  for (std::string line; std::getline(table, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::size_t at = 0;
    for (std::string& cell : rows.emplace_back()) {
      const std::size_t bar = line.find(" | ", at);
      cell = line.substr(at, bar - at);
      at = bar + 3;
    }
  }
  EXPECT_FALSE(rows.empty()) << name;
  return rows;
}

#endif
