// The check of a whole store.
#pragma once

#include <functional>
#include <string>

#include "platform/objectstore/session.h"

namespace store {

// Tells each problem; true when there was none. Reads everything once or twice; changes nothing.
bool CheckStore(Session& session, const std::function<void(const std::wstring&)>& report);

}  // namespace store
