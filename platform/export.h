// The one export macro of the shared library. Everything else is hidden.
#pragma once

#if defined(_WIN32)
#if defined(OSTRAND_BUILDING)
#define OSTRAND_API __declspec(dllexport)
#else
#define OSTRAND_API __declspec(dllimport)
#endif
#else
#define OSTRAND_API __attribute__((visibility("default")))
#endif
