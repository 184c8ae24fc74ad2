// Where the controls of the PIN pad stand.
#pragma once

#include <win.h>

constexpr int kPinPadKeys = 11;  // 1 to 9, 0, C, in this order

struct PinPadPlaces {
    RECT heading;
    RECT display;
    RECT keys[kPinPadKeys];
};

// Lays the pad out in a client area of that size:
//
//         Enter Password
//     [       XXXX        ]
//     [  1  ][  2  ][  3  ]
//     [  4  ][  5  ][  6  ]
//     [  7  ][  8  ][  9  ]
//     [  C  ][     0      ]
//
// Keys grow with the area up to a size that a thumb likes; the pad then stands in the middle, a little high. All in
// device pixels. On an area that is too small the keys shrink, down to one pixel.
PinPadPlaces LayOutPinPad(SIZE client);
