// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TRACE_SIX_DIGITS_H
#define NORDIKA_TRACE_SIX_DIGITS_H

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

/// The room that writeSixDigits() needs. Its longest text, "-1.23457e-308", is
/// shorter: it writes more than it returns.
constexpr int kSixDigitsLength = 16;

/// Writes x as the C conversion "%g" does in the "C" locale: six significant
/// digits, exponent notation below 1e-4 and from 1e6 on, no trailing zeros;
/// "inf" and "nan" with their sign. `out` has room for kSixDigitsLength
/// characters; no terminator is written.
/// @return the place after the last character
char* writeSixDigits(char* out, double x);

// Six digits without text.
//
// Once rounded to six significant digits, x is m·10^(e-5), where 10^e <= |x| <
// 10^(e+1) and m is an integer of six digits. Three questions have to be
// answered as exactly as text answers them.
//
// Which e? The binary exponent leaves two possibilities at most; comparing |x|
// with the double nearest to the power of ten between them settles it. Where
// that double lies below the true power and |x| equals it, e is one too large,
// and m comes out as 100000 all the same.
//
// Which m? s = x·10^(5-e) is below 2^20. Its rounding error and that of the
// power are at most 2^-33 each, so that s is off by at most 2^-32: unless s is
// within 2^-31 of a half, the integer nearest to it is the one nearest to the
// true value. Near a half, where |x| almost equals c·10^(e-5), c = floor|s| + 1/2,
// the sign of (|x| - c·H) - c·L decides, where H + L = 10^(e-5) and H has 32
// bits: c·H is exact, |x| - c·H is exact (Sterbenz), and c·L is off by less than
// 2^-84·|x|. A difference smaller than 2^-80·|x| is an exact tie where such can
// be: c·10^(e-5) is a double only for 5^(e-5) below 2^53 or 5^(5-e) dividing
// 2c < 2^21, hence -9 <= e-5 <= 22. There it cannot be anything else. From 0 on
// L has at most 21 bits, and the difference itself is exact. Below, k = 5-e, the
// difference between |x|·10^k and c is a multiple of 2^-57: |x| = M·2^q, M < 2^53,
// and M·5^k·2^(q+k) is about c > 2^16. So it is 0 or more than 2^-77·c. Elsewhere
// text has to tell; nine magnitudes come to that.
//
// Which double is nearest to m·10^(e-5)? m·H + m·L: m·H is exact, m·L has a
// relative error of 2^-53 and is 2^-32 of the sum, so that the sum is rounded
// once from a value with 84 good bits. For no m and e does the true value lie
// so close to the middle of two doubles that this errs; all 900,001 · 600 of
// them have been compared with std::from_chars.
//
// All that depends on the binary exponent stands in one line of the cache.
// Zero, values below 1e-290, infinities and NaN go through text: the factors
// of their binary exponents are NaN, which no test for nearness lets pass.
namespace six_digits {

// What turns x into digits and back: 10^(5-e), and H and L of 10^(e-5).
struct Decade {
  double scale;
  double high;
  double low;
};

struct alignas(64) Binade {
  std::uint64_t border;  // the bits of the power of ten that the binade
                         // contains, or of one above it
  Decade decades[2];     // from the border on, and below it
  int e;                 // below the border
};

extern const std::array<Binade, 2048> kBinades;

struct Digits {
  double s;
  double m;
  const Binade& binade;
  const Decade& decade;  // one of the binade's

  bool areCertain() const { return std::abs(s - m) <= 0.5 - 0x1p-31; }
  int e() const { return binade.e + (&decade == binade.decades ? 1 : 0); }
};

inline Digits split(double x) {
  const auto magnitude = std::bit_cast<std::uint64_t>(x) & ~(std::uint64_t{1} << 63);
  const Binade& binade = kBinades.data()[magnitude >> 52];
  // The bits of positive doubles compare as the doubles do; no branch depends
  // on the values.
  const Decade& decade = *(binade.decades + ((magnitude - binade.border) >> 63));
  const double s = x * decade.scale;
  // Adding 1.5·2^52 rounds a small double to an integer.
  return {s, (s + 0x1.8p52) - 0x1.8p52, binade, decade};
}

// roundToSixDigits() for an x whose digits are not certain. Scalars go there in
// registers; the certain ones pay nothing for it.
double roundUncertain(double x, double s, int e, const Decade& decade);

}  // namespace six_digits

/// The double nearest to the text that writeSixDigits() makes of x: what is
/// left of x after a trip through text of six significant digits. The sign of
/// zero stays; infinities and NaN are returned as they are.
inline double roundToSixDigits(double x) {
  const six_digits::Digits digits = six_digits::split(x);
  if (!digits.areCertain()) [[unlikely]]
    return six_digits::roundUncertain(x, digits.s, digits.e(), digits.decade);
  return digits.m * digits.decade.high + digits.m * digits.decade.low;
}

#endif
