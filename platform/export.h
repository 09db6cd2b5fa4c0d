// What leaves a module: OSTRAND_API marks what the shared library exports, everything else in it is hidden;
// OSTRAND_MODULE_EXPORT the functions of a protocol module that the library finds by their names.
#pragma once

#if defined(_WIN32)
#define OSTRAND_MODULE_EXPORT extern "C" __declspec(dllexport)
#if defined(OSTRAND_BUILDING)
#define OSTRAND_API __declspec(dllexport)
#else
#define OSTRAND_API __declspec(dllimport)
#endif
#else
#define OSTRAND_MODULE_EXPORT extern "C" __attribute__((visibility("default")))
#define OSTRAND_API __attribute__((visibility("default")))
#endif
