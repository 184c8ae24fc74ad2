// Reading the SHMENUBAR resource. No windows: bytes in, buttons out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

struct MenuBarButton {
    uint16_t image;  // kNoImage: shows its text
    uint16_t command;
    uint8_t state;   // TBSTATE_*
    uint8_t style;   // TBSTYLE_* of a button (the low byte)
    uint16_t text;   // string id, 0 for none
    uint16_t popup;  // index in the menu, or kNoPopup
};

struct MenuBarResource {
    static constexpr uint16_t kNoImage = 0xFFFE;
    static constexpr uint16_t kNoPopup = 0xFFFF;

    uint16_t menu = 0;  // id of the MENU resource with the popups
    std::vector<MenuBarButton> buttons;
};

// Nothing when the data is shorter than its own count of buttons says. What follows the last button is ignored.
std::optional<MenuBarResource> ReadMenuBarResource(const void* data, size_t bytes);
