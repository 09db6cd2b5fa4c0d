// The export macro of the library OstrandUIQt.
#pragma once

#if defined(_WIN32)
#if defined(OSTRAND_BUILDING_QT)
#define OSTRAND_QT_API __declspec(dllexport)
#else
#define OSTRAND_QT_API __declspec(dllimport)
#endif
#else
#define OSTRAND_QT_API __attribute__((visibility("default")))
#endif
