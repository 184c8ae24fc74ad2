#include "platform/shell/menu_bar_resource.h"

#include <cstring>

namespace {

constexpr size_t kHeaderWords = 2;
constexpr size_t kButtonWords = 7;

uint16_t Word(const void* data, size_t index) {
    uint16_t word;
    std::memcpy(&word, static_cast<const char*>(data) + index * sizeof(word), sizeof(word));
    return word;
}

MenuBarButton Button(const void* data, size_t at) {
    // Word 5 is reserved.
    return {Word(data, at),
            Word(data, at + 1),
            static_cast<uint8_t>(Word(data, at + 2)),
            static_cast<uint8_t>(Word(data, at + 3)),
            Word(data, at + 4),
            Word(data, at + 6)};
}

}  // namespace

std::optional<MenuBarResource> ReadMenuBarResource(const void* data, size_t bytes) {
    const size_t words = bytes / sizeof(uint16_t);
    if (!data || words < kHeaderWords) return std::nullopt;
    const size_t count = Word(data, 1);
    if (words - kHeaderWords < count * kButtonWords) return std::nullopt;
    MenuBarResource resource;
    resource.menu = Word(data, 0);
    resource.buttons.reserve(count);
    for (size_t i = 0; i < count; ++i)
        resource.buttons.push_back(Button(data, kHeaderWords + i * kButtonWords));
    return resource;
}
