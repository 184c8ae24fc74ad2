#include "ui/static_text.h"

HANDLE StaticText::SetImage(UINT type, HANDLE image) {
    return reinterpret_cast<HANDLE>(SendMessage(STM_SETIMAGE, type, reinterpret_cast<LPARAM>(image)));
}
