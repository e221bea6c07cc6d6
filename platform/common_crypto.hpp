// MD5 digests and random numbers from the platform's C libraries. Any thread.
#pragma once

#include <cstdint>

inline constexpr int CC_MD5_DIGEST_LENGTH = 16;

extern "C" {
// Computes the MD5 digest of `length` bytes. Writes CC_MD5_DIGEST_LENGTH bytes to `digest` and returns `digest`.
unsigned char* CC_MD5(const void* data, std::uint32_t length, unsigned char* digest);
// Returns a uniformly distributed random number from 0 to bound - 1.
std::uint32_t arc4random_uniform(std::uint32_t bound);
}
