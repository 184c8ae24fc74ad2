#include "platform/richink/metafile_guard.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

constexpr uint32_t kHeaderBytes = 88;  // of the oldest form
constexpr uint32_t kSignature = 0x464D4520;
constexpr uint32_t kMostRecords = 20'000;
constexpr uint32_t kMostPoints = 100'000;
constexpr uint32_t kMostHandles = 256;
constexpr uint32_t kDeepestSaved = 32;
constexpr int32_t kFarthest = 0x7FFF;  // where a device's own coordinates end
constexpr int32_t kMostDevice = 100'000;
constexpr uint32_t kWidestPen = 2'000;
constexpr uint32_t kStockObject = 0x80000000;
constexpr uint32_t kMostPointsARecord = 1'024;  // wide lines take the square of their number
constexpr double kFarthestPixels = 100'000;

// Kinds of objects that a handle may stand for.
enum class Object { kNone, kPen, kBrush };

class Checker {
public:
    Checker(std::string_view bytes, SIZE area) : bytes_(bytes), area_(area) {}

    bool Run() {
        if (!Header()) return false;
        uint32_t records = 1;
        for (at_ = size_; bytes_.size() - at_ >= 8; at_ += size_) {
            size_ = Number(4);
            if (size_ < 8 || size_ % 4 || size_ > bytes_.size() - at_ || ++records > kMostRecords) return false;
            if (Number(0) == EMR_EOF) return size_ >= 20 && Number(8) == 0 && at_ + size_ == bytes_.size();
            reach_ = 0;
            if (!Record() || (Draws(Number(0)) && !IsScaleSound())) return false;
        }
        return false;
    }

private:
    uint32_t Number(size_t offset) const {
        uint32_t number = 0;
        std::memcpy(&number, bytes_.data() + at_ + offset, sizeof(number));
        return number;
    }
    int32_t Signed(size_t offset) const { return static_cast<int32_t>(Number(offset)); }
    int16_t Short(size_t offset) const {
        int16_t number = 0;
        std::memcpy(&number, bytes_.data() + at_ + offset, sizeof(number));
        return number;
    }
    float Real(size_t offset) const {
        float number = 0;
        std::memcpy(&number, bytes_.data() + at_ + offset, sizeof(number));
        return number;
    }

    static bool IsNear(int32_t number) { return number >= -kFarthest && number <= kFarthest; }
    // `count` whole numbers from `offset` on, none of them far away. The record has them.
    bool AreNear(size_t offset, size_t count) {
        for (size_t i = 0; i < count; ++i)
            if (!Reach(Signed(offset + 4 * i))) return false;
        return true;
    }
    bool Reach(int32_t number) {
        if (!IsNear(number)) return false;
        reach_ = std::max(reach_, std::abs(number));
        return true;
    }
    bool Has(uint32_t size) const { return size_ >= size; }
    bool Near(uint32_t numbers) { return Has(8 + 4 * numbers) && AreNear(8, numbers); }
    bool OneOf(uint32_t least, uint32_t most) const { return Has(12) && Number(8) >= least && Number(8) <= most; }

    static bool Draws(uint32_t type) {
        return type != EMR_SETWINDOWEXTEX && type != EMR_SETWINDOWORGEX && type != EMR_SETVIEWPORTEXTEX &&
               type != EMR_SETVIEWPORTORGEX;
    }

    bool Header() {
        if (bytes_.size() < kHeaderBytes) return false;
        size_ = Number(4);
        const uint32_t handles = Number(56) & 0xFFFF;
        if (Number(0) != EMR_HEADER || size_ < kHeaderBytes || size_ % 4 || size_ > bytes_.size() ||
            Number(40) != kSignature || Number(48) != bytes_.size() || handles > kMostHandles || !AreNear(8, 4)) {
            return false;
        }
        for (size_t offset = 24; offset < 40; offset += 4) {  // the frame, in hundredths of a millimetre
            if (std::abs(static_cast<int64_t>(Signed(offset))) > kMostDevice) return false;
        }
        if (Signed(24) >= Signed(32) || Signed(28) >= Signed(36)) return false;
        for (size_t offset = 72; offset < 88; offset += 4) {  // the device, in pixels and millimetres
            if (Signed(offset) <= 0 || Signed(offset) > kMostDevice) return false;
        }
        const double wide = (Signed(32) - Signed(24)) * 0.01 * Signed(72) / Signed(80);
        const double high = (Signed(36) - Signed(28)) * 0.01 * Signed(76) / Signed(84);
        enlarged_ = std::max({1.0, area_.cx / wide, area_.cy / high});
        objects_.assign(handles, Object::kNone);
        return true;
    }

    bool Record() {
        switch (Number(0)) {
            case EMR_POLYBEZIER:
            case EMR_POLYGON:
            case EMR_POLYLINE:
            case EMR_POLYBEZIERTO:
            case EMR_POLYLINETO: return Points(8);
            case EMR_POLYBEZIER16:
            case EMR_POLYGON16:
            case EMR_POLYLINE16:
            case EMR_POLYBEZIERTO16:
            case EMR_POLYLINETO16: return Points(4);
            case EMR_POLYPOLYLINE:
            case EMR_POLYPOLYGON: return Polygons(8);
            case EMR_POLYPOLYLINE16:
            case EMR_POLYPOLYGON16: return Polygons(4);
            case EMR_MOVETOEX:
            case EMR_LINETO:
            case EMR_SETBRUSHORGEX:
            case EMR_SETWINDOWORGEX:
            case EMR_SETVIEWPORTORGEX: return Near(2);
            case EMR_SETWINDOWEXTEX: return Extent(&window_);
            case EMR_SETVIEWPORTEXTEX: return Extent(&viewport_);
            case EMR_ELLIPSE:
            case EMR_RECTANGLE:
            case EMR_INTERSECTCLIPRECT: return Near(4);
            case EMR_ROUNDRECT: return Near(6);
            case EMR_ARC:
            case EMR_ARCTO:
            case EMR_CHORD:
            case EMR_PIE: return Near(8);
            case EMR_SETMAPMODE: return OneOf(MM_TEXT, MM_ANISOTROPIC);
            case EMR_SETBKMODE: return OneOf(TRANSPARENT, OPAQUE);
            case EMR_SETPOLYFILLMODE: return OneOf(ALTERNATE, WINDING);
            case EMR_SETROP2: return OneOf(R2_BLACK, R2_WHITE);
            case EMR_SETSTRETCHBLTMODE: return OneOf(BLACKONWHITE, HALFTONE);
            case EMR_SETARCDIRECTION: return OneOf(AD_COUNTERCLOCKWISE, AD_CLOCKWISE);
            case EMR_SETTEXTALIGN:
            case EMR_SETTEXTCOLOR:
            case EMR_SETBKCOLOR: return Has(12);
            case EMR_SETMITERLIMIT: return Has(12) && Number(8) <= 1'000;
            case EMR_SAVEDC: return ++saved_ <= kDeepestSaved;
            case EMR_RESTOREDC: return Has(12) && Signed(8) == -1 && saved_ > 0 && saved_--;
            case EMR_MODIFYWORLDTRANSFORM:
                return Has(36) && Number(32) >= MWT_IDENTITY && Number(32) <= 4 && Transform();
            case EMR_SETWORLDTRANSFORM: return Has(32) && Transform();
            case EMR_CREATEPEN: return Has(28) && Pen() && Take(Object::kPen);
            case EMR_EXTCREATEPEN: return Has(52) && ExtendedPen() && Take(Object::kPen);
            case EMR_CREATEBRUSHINDIRECT: return Has(24) && Number(12) <= BS_HATCHED && Take(Object::kBrush);
            case EMR_SELECTOBJECT: return Has(12) && Select();
            case EMR_DELETEOBJECT: return Has(12) && Delete();
            case EMR_GDICOMMENT: return Has(12) && Number(8) <= size_ - 12;
        }
        return false;
    }

    // Bounds, a count, and points of `each` bytes.
    bool Points(uint32_t each) {
        if (!Has(28)) return false;
        const uint32_t count = Number(24);
        return count <= (size_ - 28) / each && Count(count) && ArePointsNear(28, count, each);
    }

    // Bounds, the number of parts, of points, the points in each part, and the points.
    bool Polygons(uint32_t each) {
        if (!Has(32)) return false;
        const uint32_t parts = Number(24), count = Number(28);
        if (parts == 0 || parts > (size_ - 32) / 4 || count > (size_ - 32 - 4 * parts) / each || !Count(count))
            return false;
        uint64_t all = 0;
        for (uint32_t i = 0; i < parts; ++i) {
            const uint32_t part = Number(32 + 4 * i);
            if (part < 2 || part > count) return false;
            all += part;
        }
        return all == count && ArePointsNear(32 + 4 * parts, count, each);
    }

    bool Count(uint32_t points) {
        points_ += points;
        return points > 0 && points <= kMostPointsARecord && points_ <= kMostPoints;
    }

    bool ArePointsNear(size_t offset, uint32_t count, uint32_t each) {
        if (each == 8) return AreNear(offset, size_t{2} * count);
        for (uint32_t i = 0; i < 2 * count; ++i)
            if (!Reach(Short(offset + 2 * i))) return false;
        return true;
    }

    bool Extent(SIZE* extent) {
        if (!Near(2) || Signed(8) == 0 || Signed(12) == 0) return false;
        *extent = {std::abs(Signed(8)), std::abs(Signed(12))};
        return true;
    }

    // The worst that the transforms together can do, whether or not one takes back what another has done.
    bool Transform() {
        double most = 1;
        for (size_t offset = 8; offset < 24; offset += 8) {
            const double across = std::fabs(Real(offset)) + std::fabs(Real(offset + 4));
            if (!std::isfinite(across)) return false;
            most = std::max(most, across);
        }
        transformed_ *= most;
        for (size_t offset = 24; offset < 32; offset += 4) {
            if (!(std::fabs(Real(offset)) <= kFarthest)) return false;
        }
        return true;
    }

    // Whether all places that a record may name lie near as they come out on the screen.
    bool IsScaleSound() const {
        const double mapped = std::max(
            {1.0, static_cast<double>(viewport_.cx) / window_.cx, static_cast<double>(viewport_.cy) / window_.cy});
        return reach_ * mapped * transformed_ * enlarged_ <= kFarthestPixels;
    }

    bool Pen() const { return Number(12) <= PS_INSIDEFRAME && Number(16) <= kWidestPen; }

    // Without a pattern or a style of its own.
    bool ExtendedPen() const {
        const uint32_t style = Number(28);
        return Number(12) == 0 && Number(16) == 0 && Number(20) == 0 && Number(24) == 0 &&
               (style & PS_STYLE_MASK) <= PS_INSIDEFRAME && (style & ~0x1FFFFu) == 0 && Number(32) <= kWidestPen &&
               Number(36) <= BS_NULL && Number(48) == 0;
    }

    // Handle 0 is the metafile's own.
    bool IsHandle(uint32_t handle) const { return handle > 0 && handle < objects_.size(); }

    bool Take(Object object) {
        const uint32_t handle = Number(8);
        if (!IsHandle(handle) || objects_[handle] != Object::kNone) return false;
        objects_[handle] = object;
        return true;
    }

    bool Select() const {
        const uint32_t handle = Number(8);
        if (handle & kStockObject) return (handle & ~kStockObject) <= NULL_PEN;
        return IsHandle(handle) && objects_[handle] != Object::kNone;
    }

    bool Delete() {
        const uint32_t handle = Number(8);
        if (!IsHandle(handle) || objects_[handle] == Object::kNone) return false;
        objects_[handle] = Object::kNone;
        return true;
    }

    std::string_view bytes_;
    size_t at_ = 0;      // the record's first byte
    uint32_t size_ = 0;  // its length
    uint32_t points_ = 0;
    uint32_t saved_ = 0;
    std::vector<Object> objects_;
    SIZE window_{1, 1};
    SIZE viewport_{1, 1};
    SIZE area_;
    int32_t reach_ = 0;       // the farthest number in the record
    double transformed_ = 1;  // how many times larger the transforms may make it
    double enlarged_ = 1;     // and the picture's size on the screen
};

struct Player {
    ULONGLONG deadline;
    bool finished;
};

int CALLBACK PlayRecord(HDC dc, HANDLETABLE* handles, const ENHMETARECORD* record, int count, LPARAM data) {
    auto& player = *reinterpret_cast<Player*>(data);
    if (GetTickCount64() > player.deadline) {
        player.finished = false;
        return 0;
    }
    PlayEnhMetaFileRecord(dc, handles, record, static_cast<UINT>(count));
    return 1;
}

}  // namespace

bool IsPlayableMetafile(std::string_view bytes, SIZE area) {
    return Checker(bytes, area).Run();
}

bool PlayMetafile(HDC dc, std::string_view bytes, const RECT& area, DWORD milliseconds) {
    const HENHMETAFILE metafile =
        SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), reinterpret_cast<const BYTE*>(bytes.data()));
    if (!metafile) return true;
    Player player{GetTickCount64() + milliseconds, true};
    SaveDC(dc);
    IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
    EnumEnhMetaFile(dc, metafile, PlayRecord, &player, &area);
    RestoreDC(dc, -1);
    DeleteEnhMetaFile(metafile);
    return player.finished;
}
