// What a device has in its object store before any program ran.
#pragma once

#include "platform/objectstore/sql.h"

namespace store {

// Makes "\Categories Database", which the personal-information programs share, with a few visible categories, in an
// otherwise empty store.
void Provision(Connection& connection);

}  // namespace store
