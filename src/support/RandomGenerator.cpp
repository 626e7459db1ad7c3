#include "vellcolor/RandomGenerator.h"

#include <ctime>
#include <random>

namespace {

// std::mt19937 is the 2002 reference generator: the same seeding
// (init_genrand) and the same tempered output (genrand_int32). Default
// construction seeds it with 5489, as a draw from an unseeded state does.
std::mt19937& Twister() {
    static std::mt19937 state;
    return state;
}

RandomGenerator g_moduleRandom;

}  // namespace

RandomGenerator& ModuleRandom() {
    return g_moduleRandom;
}

RandomGenerator::RandomGenerator() {
    Seed(static_cast<unsigned int>(std::time(nullptr)));
}

RandomGenerator::RandomGenerator(unsigned int seed) {
    Seed(seed);
}

void RandomGenerator::Seed(unsigned int seed) {
    Twister().seed(seed);
}

unsigned int RandomGenerator::GenerateInt32() {
    return static_cast<unsigned int>(Twister()());
}

double RandomGenerator::GenerateReal1() {
    return GenerateInt32() * (1.0 / 4294967295.0);
}

double RandomGenerator::Uniform(float lo, float hi) {
    return static_cast<double>(lo) + (static_cast<double>(hi) - lo) * GenerateReal1();
}

int RandomGenerator::UniformInt(int lo, int hi) {
    // The half-unit widening and the single-precision roundings give each
    // integer, the end points included, nearly the same chance.
    const float a = static_cast<float>(lo - 0.5);
    const float b = static_cast<float>(hi + 0.5);
    float v = static_cast<float>(Uniform(a, b));
    if (v < 0) {
        v = static_cast<float>(v - 0.5);
    } else if (v > 0) {
        v = static_cast<float>(v + 0.5);
    }
    if (lo > v) v = static_cast<float>(lo);
    if (hi < v) v = static_cast<float>(hi);
    return static_cast<int>(v);
}
