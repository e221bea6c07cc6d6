/* Reading from files. */
#pragma once

typedef long long off_t;
typedef long ssize_t;

#define SEEK_END 2

#ifdef __cplusplus
extern "C" {
#endif
off_t lseek(int file, off_t offset, int from);
ssize_t pread(int file, void* bytes, unsigned long count, off_t offset);
int close(int file);
#ifdef __cplusplus
}
#endif
