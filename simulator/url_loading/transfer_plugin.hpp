// The function that the transfers plugin exports. It implements url_loading::startTransfer.
#pragma once

#include "simulator/url_loading/transfers.hpp"

extern "C" void brim_start_transfer(url_loading::Request request, url_loading::Completion completion);
