/* Dynamic linking. The values are those of the phone. */
#pragma once

#define RTLD_LAZY 0x1
#define RTLD_NOW 0x2
#define RTLD_LOCAL 0x4
#define RTLD_GLOBAL 0x8

#ifdef __cplusplus
extern "C" {
#endif
void* dlopen(const char* path, int mode);
void* dlsym(void* handle, const char* symbol);
int dlclose(void* handle);
#ifdef __cplusplus
}
#endif
