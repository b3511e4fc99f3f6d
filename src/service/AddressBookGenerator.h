#pragma once
// Synthetic address books for tests and measurements: seeded, so a seed always gives the same
// book on every platform. Names mix plain Latin, accented Latin and Cyrillic; surnames follow
// a skewed distribution (a few are very common); about a fifth of the contacts have a company;
// each has one to three numbers written in national or international form.

#include <cstdint>
#include <vector>

#include "service/ServiceContact.h"

/// `count` contacts with object ids 1..count, made from `seed`.
std::vector<ServiceContact> GenerateAddressBook(uint32_t count, uint32_t seed);

/// A small seeded generator whose sequence does not depend on the standard library.
class BookRandom {
  public:
    explicit BookRandom(uint32_t seed) : state_(seed * 2654435761u + 0x9E3779B9u) {}
    uint32_t Next();
    /// 0 .. n - 1 (n > 0).
    uint32_t Below(uint32_t n) { return Next() % n; }
    /// 0 .. n - 1, small values far more likely (about a Zipf law).
    uint32_t Skewed(uint32_t n);

  private:
    uint64_t state_;
};
