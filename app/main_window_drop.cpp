// Files that are dropped on the main window.
#include <string>
#include <vector>

#include "app/main_window.h"
#include "outlook/file_import.h"

// While another screen is open, or the password is asked for, nothing can be dropped; another program may say so all
// the same.
LRESULT MainWindow::OnDropFiles(HDROP drop) {
    std::vector<std::wstring> files(DragQueryFileW(drop, UINT_MAX, nullptr, 0));
    for (size_t i = 0; i < files.size(); ++i) {
        const UINT index = static_cast<UINT>(i);
        files[i].resize(DragQueryFileW(drop, index, nullptr, 0));
        DragQueryFileW(drop, index, files[i].data(), static_cast<UINT>(files[i].size()) + 1);
    }
    DragFinish(drop);
    std::erase(files, L"");
    if (!locked_ && IsVisible() && IsEnabled()) ImportFiles(*this, files);
    return 0;
}
