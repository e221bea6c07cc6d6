# Removes FILE and fails where it is larger than the number of bytes that stands in size_budget: what a phone maps into
# two processes at their start has to stay small.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/size_budget budget)
file(SIZE ${FILE} size)
if(size GREATER budget)
  file(REMOVE ${FILE})
  message(FATAL_ERROR "Brim.dylib has ${size} bytes and may have ${budget}: make it smaller, or raise device/size_budget and say why.")
endif()
