#!/usr/bin/env python3
"""Makes core/cipher/pi_words.cpp: the fraction of pi as 1042 words of 32 bits, by Machin's formula
pi = 16 arctan(1/5) - 4 arctan(1/239) in fixed point.
  scripts/make-pi-words.py > core/cipher/pi_words.cpp"""
WORDS = 18 + 4 * 256
BITS = 32 * WORDS
GUARD = 64  # bits that take up the rounding of the terms


def arctan_of_inverse(n, one):
    power = one // n
    total, divisor, sign = power, 1, 1
    while power:
        power //= n * n
        divisor += 2
        sign = -sign
        total += sign * (power // divisor)
    return total


one = 1 << (BITS + GUARD)
pi = 16 * arctan_of_inverse(5, one) - 4 * arctan_of_inverse(239, one)
fraction = (pi - 3 * one) >> GUARD
words = [fraction >> (BITS - 32 * (i + 1)) & 0xFFFFFFFF for i in range(WORDS)]
print('// Made by scripts/make-pi-words.py.')
print('#include "core/cipher/pi_words.h"\n\nnamespace ostrand {\n')
print('const std::array<uint32_t, kPiWordCount> kPiWords = {')
for i in range(0, WORDS, 9):
    print('    ' + ' '.join('0x%08X,' % word for word in words[i:i + 9]))
print('};\n\n} // namespace ostrand')
