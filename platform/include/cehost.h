// How cehost.dll, which holds what a Pocket PC offers and a desktop lacks, gives its functions to others.
#pragma once

#ifdef CEHOST_BUILD
#define CEHOST_API extern "C" __declspec(dllexport)
#else
#define CEHOST_API extern "C" __declspec(dllimport)
#endif
