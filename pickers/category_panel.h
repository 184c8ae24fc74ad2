// The categories editor: the categories of the device are added, renamed and deleted.
#pragma once

#include <functional>
#include <vector>

#include "data/db_cats.h"
#include "pickers/list_panel.h"

// Blanks around a name do not count, and a name that is nothing but blanks is none. A name that a visible category has
// already is not given again: that category is selected instead. Deleting a category that is in use hides it.
class CategoryPanel : public ListPanel {
public:
    // The database is open as long as the panel lives; `changed` is called after each change.
    CategoryPanel(DbCats& database, std::function<void()> changed);

    // Every visible category with its record, in the database's order. They are read when they are asked for the first
    // time and after each change; the reference is good until then. Reading moves the database's current position.
    const std::vector<DbCItem>& Categories();

private:
    void Fill() override;
    bool Add(const std::wstring& text) override;
    bool Modify(int row, const std::wstring& text) override;
    bool Delete(int row) override;
    bool IsAllowed(const std::wstring& text) const override;
    bool IsTaken(CEOID except, const std::wstring& name);
    bool Changed(bool done);

    DbCats& database_;
    std::function<void()> changed_;
    std::vector<DbCItem> categories_;
    bool read_ = false;  // categories_ is what the database holds
};
