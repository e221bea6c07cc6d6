// Measures. Every figure is a ratio of two things measured in this run, so that it means the same on any machine.
#include "bench/presenting.hpp"

int main() {
  bench::measurePresenting();
  return 0;
}
