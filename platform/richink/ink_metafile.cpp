#include "platform/richink/ink_metafile.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

// One device unit of the metafile is one twip, so that no record has to set a scale.
constexpr LONG kDeviceUnits = 14'400;
constexpr LONG kDeviceMillimetres = 254;
constexpr wchar_t kDescription[] = L"Rich ink\0Ink\0";  // with the NUL of the literal it ends in two
constexpr DWORD kPenHandle = 1;
constexpr LONG kFarthest = 1'000'000;

LONG Hundredths(LONG twips) {  // of a millimetre
    return MulDiv(twips, 2540, 1440);
}

class Writer {
public:
    template <typename Record>
    void Add(const Record& record) {
        bytes_.append(reinterpret_cast<const char*>(&record), sizeof(record));
        ++records_;
    }
    void AddCurves(const InkPicture::Stroke& stroke) {
        struct {
            EMR type;
            RECTL bounds;
            DWORD count;
        } head{};
        head.type = {EMR_POLYBEZIER, static_cast<DWORD>(sizeof(head) + stroke.size() * sizeof(POINTL))};
        head.bounds = {stroke[0].x, stroke[0].y, stroke[0].x, stroke[0].y};
        for (const POINT& point : stroke) {
            head.bounds.left = std::min(head.bounds.left, point.x);
            head.bounds.top = std::min(head.bounds.top, point.y);
            head.bounds.right = std::max(head.bounds.right, point.x);
            head.bounds.bottom = std::max(head.bounds.bottom, point.y);
        }
        head.count = static_cast<DWORD>(stroke.size());
        Add(head);
        for (const POINT& point : stroke) {
            const POINTL place{point.x, point.y};
            bytes_.append(reinterpret_cast<const char*>(&place), sizeof(place));
        }
    }
    std::string Finish() {
        auto* header = reinterpret_cast<ENHMETAHEADER*>(bytes_.data());
        header->nBytes = static_cast<DWORD>(bytes_.size());
        header->nRecords = records_;
        return std::move(bytes_);
    }

private:
    std::string bytes_;
    DWORD records_ = 0;
};

// As it is in a file; the system's own structure has pointers in it.
struct PenRecord {
    EMR type;
    DWORD handle;
    DWORD noBitmap[4];
    DWORD style, width, brushStyle, colour, hatch, styleEntries, styleEntry;
};

struct Header {
    ENHMETAHEADER head;
    wchar_t description[(std::size(kDescription) + 1) / 2 * 2];
};
constexpr size_t kHeaderBytes = offsetof(Header, description) + sizeof(Header::description);

template <typename Value>
Value At(std::string_view bytes, size_t at) {
    Value value;
    std::memcpy(&value, bytes.data() + at, sizeof(value));
    return value;
}

// Ink is as large as what is drawn in it.
bool IsInside(const InkPicture& picture, POINT point) {
    return point.x >= 0 && point.x <= picture.size.cx && point.y >= 0 && point.y <= picture.size.cy;
}

}  // namespace

std::string WriteInkMetafile(const InkPicture& picture) {
    Writer writer;
    Header header{};
    header.head.iType = EMR_HEADER;
    header.head.nSize = kHeaderBytes;
    header.head.rclBounds = {0, 0, picture.size.cx, picture.size.cy};
    header.head.rclFrame = {0, 0, Hundredths(picture.size.cx), Hundredths(picture.size.cy)};
    header.head.dSignature = ENHMETA_SIGNATURE;
    header.head.nVersion = 0x10000;
    header.head.nHandles = kPenHandle + 1;
    header.head.nDescription = static_cast<DWORD>(std::size(kDescription));
    header.head.offDescription = offsetof(Header, description);
    header.head.szlDevice = {kDeviceUnits, kDeviceUnits};
    header.head.szlMillimeters = {kDeviceMillimetres, kDeviceMillimetres};
    std::copy_n(kDescription, std::size(kDescription), header.description);
    static_assert(sizeof(Header) == kHeaderBytes);
    writer.Add(header);

    PenRecord pen{};
    pen.type = {EMR_EXTCREATEPEN, sizeof(pen)};
    pen.handle = kPenHandle;
    pen.style = PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND;
    pen.width = kPenTwips;
    pen.brushStyle = BS_SOLID;
    writer.Add(pen);
    writer.Add(EMRSELECTOBJECT{{EMR_SELECTOBJECT, sizeof(EMRSELECTOBJECT)}, kPenHandle});
    for (const InkPicture::Stroke& stroke : picture.strokes)
        writer.AddCurves(stroke);
    writer.Add(EMREOF{{EMR_EOF, sizeof(EMREOF)}, 0, 0, sizeof(EMREOF)});
    return writer.Finish();
}

std::optional<InkPicture> ReadInkMetafile(std::string_view bytes) {
    if (bytes.size() < sizeof(Header)) return std::nullopt;
    const auto header = At<Header>(bytes, 0);
    if (header.head.iType != EMR_HEADER || header.head.nSize != sizeof(Header) ||
        !std::equal(kDescription, std::end(kDescription), header.description)) {
        return std::nullopt;
    }
    InkPicture picture;
    picture.size = {header.head.rclBounds.right, header.head.rclBounds.bottom};
    if (picture.size.cx < 0 || picture.size.cx > kFarthest || picture.size.cy < 0 || picture.size.cy > kTallestPicture)
        return std::nullopt;
    for (size_t at = sizeof(Header); bytes.size() - at >= sizeof(EMR);) {
        const auto record = At<EMR>(bytes, at);
        if (record.nSize < sizeof(EMR) || record.nSize % 4 || record.nSize > bytes.size() - at) return std::nullopt;
        if (record.iType == EMR_EOF) return picture;
        if (record.iType == EMR_POLYBEZIER) {
            constexpr size_t kHead = offsetof(EMRPOLYBEZIER, aptl);
            if (record.nSize < kHead) return std::nullopt;
            const auto count = At<DWORD>(bytes, at + offsetof(EMRPOLYBEZIER, cptl));
            if (count < 4 || count % 3 != 1 || count > (record.nSize - kHead) / sizeof(POINTL)) return std::nullopt;
            InkPicture::Stroke stroke(count);
            for (DWORD i = 0; i < count; ++i) {
                const auto place = At<POINTL>(bytes, at + kHead + i * sizeof(POINTL));
                stroke[i] = {place.x, place.y};
                if (!IsInside(picture, stroke[i])) return std::nullopt;
            }
            picture.strokes.push_back(std::move(stroke));
        } else if (record.iType != EMR_EXTCREATEPEN && record.iType != EMR_SELECTOBJECT) {
            return std::nullopt;
        }
        at += record.nSize;
    }
    return std::nullopt;
}
