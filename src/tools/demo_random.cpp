#include "tools/demo_random.h"

int DemoRandom::Between(int least, int most) {
    const std::uint64_t span = static_cast<std::uint64_t>(most - least) + 1;
    return least + static_cast<int>(Next() % span);
}

/// SplitMix64: the state only counts up, so that neighbouring seeds draw unlike numbers.
std::uint64_t DemoRandom::Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31);
}
