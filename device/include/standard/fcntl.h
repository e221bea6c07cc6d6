/* Opening files. The values are those of the phone. */
#pragma once

#define O_RDONLY 0x0
#define O_NONBLOCK 0x4
#define O_CLOEXEC 0x1000000

#ifdef __cplusplus
extern "C" {
#endif
int open(const char* path, int flags, ...);
#ifdef __cplusplus
}
#endif
