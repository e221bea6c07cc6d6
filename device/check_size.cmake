# Removes FILE and fails if it has more bytes than size_budget allows. The limit bounds the time that the library adds
# to the start of the two processes that load it.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/size_budget budget)
file(SIZE ${FILE} size)
if(size GREATER budget)
  file(REMOVE ${FILE})
  message(FATAL_ERROR "Brim.dylib has ${size} bytes; device/size_budget allows ${budget}. Make it smaller, or raise the budget and explain why.")
endif()
