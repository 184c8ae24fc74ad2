#include "tests/app/fake_options.h"

#include "app/options_screen.h"

int FakeOptions::opened = 0;
std::function<void()> FakeOptions::meanwhile;

INT_PTR OptionsScreen::Run(Window&, const OptionLaunchers&) {
    ++FakeOptions::opened;
    if (FakeOptions::meanwhile) FakeOptions::meanwhile();
    return 0;
}
