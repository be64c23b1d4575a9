// The weather generator's random numbers. The stream depends on the seed text
// only, and uses integer arithmetic plus IEEE double, so the same text gives
// the same numbers on every build and machine.
#pragma once

#include <cmath>
#include <cstdint>
#include <string_view>

namespace tarn {

// FNV-1a over the bytes of the seed text: the text, not its value, is the key,
// so ".83774665" and "0.83774665" are different seeds.
inline std::uint64_t fnv1a64(std::string_view bytes) {
  std::uint64_t h = 0xcbf29ce484222325ULL;
  for (unsigned char c : bytes) {
    h ^= c;
    h *= 0x100000001b3ULL;
  }
  return h;
}

// xoshiro256** (Blackman & Vigna 2018), state from splitmix64 of the key.
class Random {
 public:
  explicit Random(std::uint64_t key) {
    std::uint64_t x = key;
    for (auto& w : s_) w = splitmix(x);
  }
  std::uint64_t next() {
    const std::uint64_t result = rotl(s_[1] * 5, 7) * 9;
    const std::uint64_t t = s_[1] << 17;
    s_[2] ^= s_[0];
    s_[3] ^= s_[1];
    s_[1] ^= s_[2];
    s_[0] ^= s_[3];
    s_[2] ^= t;
    s_[3] = rotl(s_[3], 45);
    return result;
  }
  // Uniform in [0, 1) with 53 random bits.
  double uniform() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }
  // Standard normal deviate, Marsaglia polar method (the spare is kept).
  double normal() {
    if (hasSpare_) {
      hasSpare_ = false;
      return spare_;
    }
    double u, v, s;
    do {
      u = 2.0 * uniform() - 1.0;
      v = 2.0 * uniform() - 1.0;
      s = u * u + v * v;
    } while (s >= 1.0 || s == 0.0);
    const double m = std::sqrt(-2.0 * std::log(s) / s);
    spare_ = v * m;
    hasSpare_ = true;
    return u * m;
  }

 private:
  static std::uint64_t rotl(std::uint64_t x, int k) { return (x << k) | (x >> (64 - k)); }
  static std::uint64_t splitmix(std::uint64_t& x) {
    std::uint64_t z = (x += 0x9e3779b97f4a7c15ULL);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
  }
  std::uint64_t s_[4];
  double spare_ = 0;
  bool hasSpare_ = false;
};

}  // namespace tarn
