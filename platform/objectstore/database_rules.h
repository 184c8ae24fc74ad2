// What a database can be: asked before one is made or changed, and of whatever the file says.
#pragma once

#include <windbase.h>

#include <string>
#include <vector>

namespace store {

constexpr size_t kMostColumns = 1900;  // properties of one database; SQLite's limit is 2000

// As many as fit into a CEDBASEINFO, each on another property, of a type and with flags that are known.
bool AreSortOrders(const std::vector<SORTORDERSPEC>& orders);

// Sort orders as the file keeps them, "property:flags property:flags ".
std::string OrdersToText(const std::vector<SORTORDERSPEC>& orders);

// False when the text is none, or says what cannot be.
bool OrdersFromText(const std::string& text, std::vector<SORTORDERSPEC>* orders);

}  // namespace store
