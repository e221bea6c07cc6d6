// What the plugin of transfers offers: the only name that the simulator looks up in it.
#pragma once

#include "simulator/url_loading/transfers.hpp"

extern "C" void brim_start_transfer(url_loading::Request request, url_loading::Completion completion);
