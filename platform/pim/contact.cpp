#include "platform/pim/contact.h"

namespace pim {

void Contact::BeforeSave() {
    if (!Record().Get<std::wstring>(kContactFileAs).empty()) return;
    const auto last = Record().Get<std::wstring>(kContactLastName);
    const auto first = Record().Get<std::wstring>(kContactFirstName);
    std::wstring fileAs = last.empty() || first.empty() ? last + first : last + L", " + first;
    if (fileAs.empty()) fileAs = Record().Get<std::wstring>(kContactCompanyName);
    if (!fileAs.empty()) Record().Set(kContactFileAs, fileAs);
}

}  // namespace pim
