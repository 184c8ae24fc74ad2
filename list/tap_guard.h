// Keeps the second tap of a double tap away from the screen that the first tap has opened.
#pragma once

// A tap on an entry opens a full-screen dialog at once, under the stylus that is just about to come down again: without
// this, a double tap would open the entry and then press whatever lies at that place in it.
//
// `onSwallowed` (may be null) is called once, when the second tap has been taken and its stylus lifted: nobody else
// sees it as a double tap.
//
// Armed while a tap is handled; taken back by itself after one press, or when the time or the place of a double tap has
// passed. User-interface thread only.
void SwallowSecondTap(void (*onSwallowed)());

// For the screen that a guarded tap has opened, once it is there: a second press that came while the screen was being
// made met a disabled window, and the system dropped it. It counts as the second tap all the same.
void TakeLostSecondTap();
