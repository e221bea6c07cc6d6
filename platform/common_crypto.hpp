// Digests and random numbers of the platform's C libraries.
#pragma once

#include <cstdint>

inline constexpr int CC_MD5_DIGEST_LENGTH = 16;

extern "C" {
// Writes the digest to `digest`, which it returns.
unsigned char* CC_MD5(const void* data, std::uint32_t length, unsigned char* digest);
// Uniform in 0 to bound - 1.
std::uint32_t arc4random_uniform(std::uint32_t bound);
}
