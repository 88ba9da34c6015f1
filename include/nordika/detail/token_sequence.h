// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_DETAIL_TOKEN_SEQUENCE_H
#define NORDIKA_DETAIL_TOKEN_SEQUENCE_H

#include <cstddef>
#include <utility>
#include <vector>

class Expression;

namespace nordika::detail {

/// A vector of tokens that can only be read. An expression compiles its postfix
/// sequence once, so a change of the sequence would have no effect.
template <typename Token>
class TokenSequence {
 public:
  TokenSequence() = default;
  TokenSequence(const TokenSequence&) = default;
  TokenSequence(TokenSequence&&) noexcept = default;
  explicit TokenSequence(std::vector<Token> sequence) : tokens(std::move(sequence)) {}
  ~TokenSequence() = default;

  operator const std::vector<Token>&() const { return tokens; }
  const Token& operator[](std::size_t i) const { return tokens[i]; }
  auto begin() const { return tokens.begin(); }
  auto end() const { return tokens.end(); }
  std::size_t size() const { return tokens.size(); }

 private:
  friend Expression;
  TokenSequence& operator=(const TokenSequence&) = default;
  TokenSequence& operator=(TokenSequence&&) noexcept = default;

  std::vector<Token> tokens;
};

}  // namespace nordika::detail

#endif
