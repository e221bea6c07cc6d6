// What a banner's life costs: a finger that moves it, and ten thousand of them one after the other.
#pragma once

namespace bench {

void measureDragging();
void measureBannerLifetime();

}  // namespace bench
