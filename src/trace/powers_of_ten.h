// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TRACE_POWERS_OF_TEN_H
#define NORDIKA_TRACE_POWERS_OF_TEN_H

#include <array>
#include <bit>
#include <cstdint>
#include <limits>

__extension__ typedef unsigned __int128 Uint128;  // NOLINT(modernize-use-using): no attribute there

/// A power of ten, as the nearest double and as the sum of two: `high` holds
/// its first 32 bits, so that the product with an integer below 2^21 is exact;
/// `low` is the rest, rounded. Their sum is off by less than 2^-84 of the power
/// from 1e-295 on; below that `low` is subnormal.
struct PowerOfTen {
  double high;
  double low;
  double nearest;
};

constexpr int kSmallestPower = -304;
constexpr int kLargestPower = 309;

namespace powers_of_ten_detail {

constexpr double scaled(double x, int exponent) {
  // In halves: the whole power of two may be below the smallest double.
  const int half = exponent / 2;
  const auto powerOfTwo = [](int e) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(e + 1023) << 52);
  };
  return x * powerOfTwo(half) * powerOfTwo(exponent - half);
}

// mantissa · 2^exponent, the mantissa's highest bit set; each step cuts off
// less than two units of it, so that 300 steps leave 118 good bits.
struct Wide {
  Uint128 mantissa = Uint128{1} << 127;
  int exponent = -127;

  constexpr void timesTen() {
    const Uint128 eighths = (mantissa >> 1) + (mantissa >> 3);
    const bool carry = (eighths >> 127) != 0;
    mantissa = carry ? eighths : mantissa + (mantissa >> 2);
    exponent += carry ? 4 : 3;
  }

  constexpr void overTen() {
    const Uint128 quotient = mantissa / 5;
    const Uint128 remainder = mantissa % 5;
    const int shift = (quotient >> 125) != 0 ? 2 : 3;
    mantissa = (quotient << shift) + (remainder << shift) / 5;
    exponent -= shift + 1;
  }

  constexpr PowerOfTen split() const {
    const auto high = static_cast<std::uint64_t>(mantissa >> 96);
    const Uint128 low = mantissa & ((Uint128{1} << 96) - 1);
    const double first = scaled(static_cast<double>(high), exponent + 96);
    const double rest = scaled(static_cast<double>(low), exponent);
    return {first, rest, first + rest};
  }
};

constexpr auto make() {
  std::array<PowerOfTen, kLargestPower - kSmallestPower + 1> powers{};
  Wide up;
  for (int k = 0; k < kLargestPower; ++k, up.timesTen()) {
    powers[static_cast<std::size_t>(k - kSmallestPower)] = up.split();
  }
  // Above every double.
  powers.back().nearest = std::numeric_limits<double>::infinity();
  Wide down;
  for (int k = 0; k >= kSmallestPower; --k, down.overTen()) {
    powers[static_cast<std::size_t>(k - kSmallestPower)] = down.split();
  }
  return powers;
}

inline constexpr auto kPowers = make();

}  // namespace powers_of_ten_detail

/// 10^k for kSmallestPower <= k <= kLargestPower; the last is infinite.
constexpr const PowerOfTen& powerOfTen(int k) {
  return powers_of_ten_detail::kPowers.data()[k - kSmallestPower];
}

#endif
