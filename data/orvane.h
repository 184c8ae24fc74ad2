// How ORVANE.DLL, which holds everything in data/, gives its classes to others.
#pragma once

#ifdef ORVANE_BUILD
#define ORVANE_API __declspec(dllexport)
#else
#define ORVANE_API __declspec(dllimport)
#endif
