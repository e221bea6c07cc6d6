// Measures. Every figure is a ratio of two things measured in this run, so that it means the same on any machine.
#include "bench/living.hpp"
#include "bench/photos.hpp"
#include "bench/presenting.hpp"
#include "bench/replying.hpp"
#include "bench/text.hpp"

int main() {
  bench::measurePresenting();
  bench::measureLiving();
  bench::measureText();
  bench::measurePhotos();
  bench::measureReplying();
  return 0;
}
