// What measuring text costs.
#pragma once

namespace bench {

void measureText();

}  // namespace bench
