#include "data/ce_dbase.h"

#include <cstring>
#include <string>

#include "data/last_error.h"

namespace {

// Each place that reports has its number, which people see in the message and tell when they ask for help: it stays
// when the code around it moves.
enum ReportLine : int {
    kLineExists = 57,
    kLineOpen = 87,
    kLineCreate = 111,
    kLineDeleteDatabase = 154,
    kLineGetInfo = 192,
    kLineGetRecordParent = 207,
    kLineDeleteRecord = 326,
    kLineWriteRecordProps = 484,
    kLineReadBadParameter = 514,
    kLineReadNoData = 526,
    kLineReadOther = 541,
    kLineSetSortOrder = 579,
};

constexpr wchar_t kModule[] = L"cedbase";

}  // namespace

CeDbase::~CeDbase() = default;

BOOL CeDbase::Create(const wchar_t* name, DWORD type, WORD sortOrders, SORTORDERSPEC* sortOrder) {
    oid_ = CeCreateDatabase(name, type, sortOrders, sortOrder);
    if (oid_) return TRUE;
    ReportError(kLineCreate, kModule);
    return FALSE;
}

BOOL CeDbase::CreateIfMissing(const wchar_t* name, DWORD type, WORD sortOrders, SORTORDERSPEC* sortOrder) {
    oid_ = CeCreateDatabase(name, type, sortOrders, sortOrder);
    if (oid_ || GetLastError() == ERROR_DUP_NAME) return TRUE;
    ReportError(kLineCreate, kModule);
    return FALSE;
}

BOOL CeDbase::Open(const wchar_t* name, CEPROPID sort, DWORD flags, HWND notify) {
    if (OpenHandle(name, sort, flags, notify)) return TRUE;
    if (GetLastError() != ERROR_INVALID_PARAMETER) ReportError(kLineOpen, kModule);
    return FALSE;
}

// Opens without reporting; what failed leaves the object not open.
BOOL CeDbase::OpenHandle(const wchar_t* name, CEPROPID sort, DWORD flags, HWND notify) {
    notify_ = notify;
    handle_ = CeOpenDatabase(&oid_, name, sort, flags, notify);
    if (handle_ != INVALID_HANDLE_VALUE) return TRUE;
    Forget();
    return FALSE;
}

void CeDbase::Forget() {
    handle_ = nullptr;
    oid_ = 0;
    notify_ = nullptr;
}

BOOL CeDbase::Close() {
    if (!handle_ || !CloseHandle(handle_)) return FALSE;
    Forget();
    return TRUE;
}

BOOL CeDbase::DeleteDatabase(CEOID oid) {
    if (!oid) {
        oid = oid_;
        Close();
        oid_ = 0;  // a database that was created and never opened has an id and nothing to close
    }
    if (CeDeleteDatabase(oid)) return TRUE;
    ReportError(kLineDeleteDatabase, kModule);
    return FALSE;
}

BOOL CeDbase::SetSortOrder(const SORTORDERSPEC* order, WORD orders) {
    const HWND notify = notify_;
    const CEOID oid = oid_;
    CEOIDINFO before{};
    if (!GetInfo(&before)) return FALSE;
    const wchar_t* name = before.infDatabase.szDbaseName;
    const CEPROPID oldSort = before.infDatabase.rgSortSpecs[0].propid;
    if (!CloseHandle(handle_)) return FALSE;

    CEDBASEINFO change{};
    change.dwFlags = CEDB_VALIDSORTSPEC;
    change.wNumSortOrder = orders;
    change.rgSortSpecs[0] = *order;
    oid_ = 0;  // so that the opening below goes by name
    const DWORD failure = CeSetDatabaseInfo(oid, &change) ? ERROR_SUCCESS : GetLastError();
    if (failure == ERROR_INVALID_PARAMETER) {
        const KeepLastError keep;
        OpenHandle(name, oldSort, 0, notify);  // before the box, behind which the list may be drawn
        MessageBoxW(nullptr, L"Database Inuse by another process\nOperation halted!", L"Database Error", MB_ICONHAND);
        return FALSE;
    }
    // Whether any other failure left the new order behind shows here. If it didn't, that failure is what there is to
    // tell, and not that there is no such order.
    if (OpenHandle(name, order->propid, 0, notify)) return TRUE;
    if (failure != ERROR_SUCCESS) SetLastError(failure);
    {
        const KeepLastError keep;
        OpenHandle(name, oldSort, 0, notify);
    }
    ReportError(kLineSetSortOrder, kModule);
    return FALSE;
}

void CeDbase::GetSortOrders(SORTORDERSPEC* orders) {
    CEOIDINFO info{};
    if (!GetInfo(&info)) return;
    std::memcpy(orders, info.infDatabase.rgSortSpecs, info.infDatabase.wNumSortOrder * sizeof(SORTORDERSPEC));
}

BOOL CeDbase::Exists(const wchar_t* name) {
    CEOID oid = 0;
    const HANDLE handle = CeOpenDatabase(&oid, name, 0, 0, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        CloseHandle(handle);
        return TRUE;
    }
    if (GetLastError() != ERROR_FILE_NOT_FOUND) ReportError(kLineExists, kModule);
    return FALSE;
}

CEOID CeDbase::GetOid() {
    return oid_;
}

CEOID CeDbase::GetRecordParent(CEOID record) {
    if (!record || !handle_) {
        ReportError(kLineGetRecordParent, kModule);
        return 0;
    }
    CEOIDINFO info{};
    if (!CeOidGetInfo(record, &info) || info.wObjType != OBJTYPE_RECORD) return 0;
    return info.infRecord.oidParent;
}

BOOL CeDbase::GetInfo(CEOIDINFO* info) {
    if (!oid_ || !handle_) {
        ReportError(kLineGetInfo, kModule);
        return FALSE;
    }
    return CeOidGetInfo(oid_, info);
}

int CeDbase::ReportError(int line, const wchar_t* source) {
    const KeepLastError error;
    const std::wstring text = L"Error: " + std::to_wstring(static_cast<int>(error.Code())) + L"(" +
                              std::to_wstring(LOWORD(line)) + L")\n" + source;
    return MessageBoxW(nullptr, text.c_str(), L"CE Database Error", MB_ICONEXCLAMATION);
}

BOOL CeDbase::DeleteRecord(CEOID record) {
    SeekToOid(record);
    const BOOL deleted = CeDeleteRecord(handle_, record);
    if (!deleted) ReportError(kLineDeleteRecord, kModule);
    const KeepLastError keep;
    SeekFirst();
    return deleted;
}

WORD CeDbase::GetRecordCount() {
    CEOIDINFO info{};
    return GetInfo(&info) ? info.infDatabase.wNumRecords : WORD{0};
}

CEOID CeDbase::ReadRecordProps(WORD* count, CEPROPID* ids, BYTE** buffer) {
    if (ids && !ids[0]) ids = nullptr;
    DWORD size = *buffer ? static_cast<DWORD>(LocalSize(*buffer)) : 0;
    const CEOID record = CeReadRecordProps(handle_, CEDB_ALLOWREALLOC, count, ids, buffer, &size);
    if (!record) ReportRead();
    return record;
}

// Says why a read failed, unless it only met the end of a walk.
void CeDbase::ReportRead() {
    switch (GetLastError()) {
        case ERROR_NO_MORE_ITEMS:
        case ERROR_KEY_DELETED: break;  // the ends of a walk
        case ERROR_INVALID_PARAMETER: ReportError(kLineReadBadParameter, kModule); break;
        case ERROR_INSUFFICIENT_BUFFER:
        case ERROR_NO_DATA: ReportError(kLineReadNoData, kModule); break;
        default: ReportError(kLineReadOther, kModule); break;
    }
}

BOOL CeDbase::Scan(WORD count, const CEPROPID* ids, CeScanVisitor visit, void* context) {
    if (!handle_) return FALSE;
    const BOOL scanned = CeScanRecords(handle_, count, ids, visit, context);
    if (!scanned) ReportRead();
    return scanned;
}

CEOID CeDbase::WriteRecordProps(CEOID record, WORD count, CEPROPVAL* values) {
    const CEOID written = CeWriteRecordProps(handle_, record, count, values);
    if (!written) ReportError(kLineWriteRecordProps, kModule);
    return written;
}

HANDLE CeDbase::GetHandle() {
    return handle_;
}
