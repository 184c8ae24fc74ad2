#include "platform/objectstore/database_rules.h"

#include <algorithm>
#include <sstream>

#include "platform/objectstore/record_values.h"

namespace store {
namespace {

constexpr DWORD kSortFlags =
    CEDB_SORT_DESCENDING | CEDB_SORT_CASEINSENSITIVE | CEDB_SORT_UNKNOWNFIRST | CEDB_SORT_GENERICORDER;

}  // namespace

bool AreSortOrders(const std::vector<SORTORDERSPEC>& orders) {
    if (orders.size() > CEDB_MAXSORTORDER) return false;
    for (auto order = orders.begin(); order != orders.end(); ++order) {
        const auto same = [&](const SORTORDERSPEC& other) { return other.propid == order->propid; };
        if (!IsKnownType(TypeFromPropID(order->propid)) || (order->dwFlags & ~kSortFlags) ||
            std::any_of(orders.begin(), order, same)) {
            return false;
        }
    }
    return true;
}

std::string OrdersToText(const std::vector<SORTORDERSPEC>& orders) {
    std::string text;
    for (const SORTORDERSPEC& order : orders)
        text += std::to_string(order.propid) + ":" + std::to_string(order.dwFlags) + " ";
    return text;
}

bool OrdersFromText(const std::string& text, std::vector<SORTORDERSPEC>* orders) {
    constexpr size_t kMostText = 24 * CEDB_MAXSORTORDER;  // two numbers of ten digits, and what is between them
    orders->clear();
    if (text.size() > kMostText) return false;
    std::istringstream stream(text);
    while (!(stream >> std::ws).eof()) {
        SORTORDERSPEC order = {};
        char colon = 0;
        if (!(stream >> order.propid >> colon >> order.dwFlags) || colon != ':') return false;
        orders->push_back(order);
    }
    return AreSortOrders(*orders);
}

}  // namespace store
