// Uniform random numbers over one Mersenne Twister (MT19937) state shared by
// the whole module. The class has no state of its own: constructing one
// reseeds the shared state for everybody.
#pragma once

class RandomGenerator {
  public:
    RandomGenerator();  // seeds with the current time in seconds
    explicit RandomGenerator(unsigned int seed);

    void Seed(unsigned int seed);

    // lo + (hi - lo) * r with r in [0, 1], both ends included.
    double Uniform(float lo, float hi);
    // An integer in [lo, hi], both ends included.
    int UniformInt(int lo, int hi);

    // The raw tempered 32-bit output and the closed-interval real built on it.
    unsigned int GenerateInt32();
    double GenerateReal1();
};

// The generator constructed at module load; the color arithmetic draws from it.
RandomGenerator& ModuleRandom();
