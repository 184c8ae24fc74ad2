// The system's boxes over the program's screens: a message box stands in the middle of the screen it belongs to, is
// wide enough for its caption and shows the program's icon.
#pragma once

// From now on on this thread. Harmless when called again; false when it cannot be.
bool PlaceBoxes();
