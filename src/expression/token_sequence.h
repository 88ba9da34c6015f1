// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// A sequence of tokens to be read only.

#ifndef NORDIKA_EXPRESSION_TOKEN_SEQUENCE_H
#define NORDIKA_EXPRESSION_TOKEN_SEQUENCE_H

#include <cstddef>
#include <utility>
#include <vector>

/// A vector of tokens to be read only. The program of an expression is compiled
/// from its postfix sequence once and would not follow a change.
template <typename Token>
class TokenSequence {
 public:
  /// The empty sequence.
  TokenSequence() = default;

  /// The sequence of these tokens.
  explicit TokenSequence(std::vector<Token> sequence) : tokens(std::move(sequence)) {}

  /// The tokens.
  operator const std::vector<Token>&() const { return tokens; }

  /// Token i, counted from 0 and not checked.
  const Token& operator[](std::size_t i) const { return tokens[i]; }

  /// The first token.
  auto begin() const { return tokens.begin(); }

  /// The place after the last token.
  auto end() const { return tokens.end(); }

  /// The last token of a sequence that is not empty.
  const Token& back() const { return tokens.back(); }

  /// The number of tokens.
  std::size_t size() const { return tokens.size(); }

  /// Whether there are no tokens.
  bool empty() const { return tokens.empty(); }

 private:
  std::vector<Token> tokens;
};

#endif
