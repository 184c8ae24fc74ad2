#include "tools/journal_tool/category_book.h"

CEOID CategoryBook::FindOrAdd(const std::wstring& name) {
    const auto known = known_.find(name);
    if (known != known_.end()) return known->second;
    database_.Add(name.c_str());  // FALSE when there was nothing to do, too
    const CEOID category = database_.FindByName(name.c_str());
    if (!category || database_.IsHidden(category)) return 0;
    known_.emplace(name, category);
    return category;
}

void CategoryBook::Forget() {
    known_.clear();
    uses_.Forget();
}
