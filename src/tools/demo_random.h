#pragma once

#include <cstdint>

/// Draws numbers that depend on the seed alone, on every system and with every compiler: the same demo
/// company must come out each time. (The standard library's distributions differ between its makers.)
class DemoRandom {
public:
    explicit DemoRandom(std::uint64_t seed) : state_(seed) {}

    /// One of least, least + 1, ... most.
    int Between(int least, int most);
    bool Chance(int perMille) { return Between(0, 999) < perMille; }

private:
    std::uint64_t Next();

    std::uint64_t state_;
};
