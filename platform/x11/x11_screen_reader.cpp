#include "x11/x11_screen_reader.h"

#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <sys/ipc.h>
#include <sys/shm.h>

#include <algorithm>
#include <bit>
#include <optional>

namespace quorlin::x11 {

namespace {

// Where a colour channel sits in a pixel of the visual, and how wide it is.
struct Channel {
    int shift = 0;
    int bits = 8;
    explicit Channel(unsigned long mask) {
        if (mask == 0) return;
        shift = std::countr_zero(mask);
        bits = std::popcount(mask);
    }
    std::uint32_t eightBits(unsigned long pixel) const {
        const unsigned long value = (pixel >> shift) & ((1ul << bits) - 1);
        return bits >= 8 ? static_cast<std::uint32_t>(value >> (bits - 8))
                         : static_cast<std::uint32_t>((value * 255) / ((1ul << bits) - 1));
    }
};

// The part of a rectangle that lies on the root window, in root coordinates, and
// where its first pixel goes in the rectangle's row-by-row output.
struct Visible {
    int x, y, width, height;
    std::size_t skipped;
};

// Clipped to the root window as it is now: RandR may have grown or shrunk it.
std::optional<Visible> visiblePart(const ScreenLayout& screen, const ScreenRect& rect) {
    const RootPoint first = screen.toRoot({rect.left, rect.top});
    const RootPoint last = screen.toRoot({rect.right, rect.bottom});
    const std::int64_t left = std::max<std::int64_t>(first.x, 0);
    const std::int64_t top = std::max<std::int64_t>(first.y, 0);
    const std::int64_t right = std::min<std::int64_t>(last.x, screen.width - 1);
    const std::int64_t bottom = std::min<std::int64_t>(last.y, screen.height - 1);
    if (right < left || bottom < top) return std::nullopt;
    const auto skipped = static_cast<std::size_t>((top - first.y) * rect.width() + (left - first.x));
    return Visible{static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left + 1),
                   static_cast<int>(bottom - top + 1), skipped};
}

}  // namespace

struct X11ScreenReader::Shm {
    XShmSegmentInfo info{};
    std::size_t capacity = 0;
};

X11ScreenReader::X11ScreenReader(X11Connection& connection) : x_(connection) {
    Display* d = x_.display();
    XWindowAttributes root;
    XGetWindowAttributes(d, x_.root(), &root);
    visual_ = root.visual;
    depth_ = root.depth;
    useShm_ = XShmQueryExtension(d) == True;
}

X11ScreenReader::~X11ScreenReader() { releaseShm(); }

void X11ScreenReader::releaseShm() {
    if (!shm_) return;
    XShmDetach(x_.display(), &shm_->info);
    XSync(x_.display(), False);
    shmdt(shm_->info.shmaddr);
    shm_.reset();
}

// A shared segment large enough for the request, kept for the next ones.
bool X11ScreenReader::reserveShm(std::size_t bytes) {
    if (shm_ && shm_->capacity >= bytes) return true;
    releaseShm();
    auto shm = std::make_unique<Shm>();
    shm->info.shmid = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
    if (shm->info.shmid < 0) return false;
    shm->info.shmaddr = static_cast<char*>(shmat(shm->info.shmid, nullptr, 0));
    shm->info.readOnly = False;
    Display* d = x_.display();
    const unsigned long errorsBefore = X11Connection::errorCount();
    const bool attached = XShmAttach(d, &shm->info) && (XSync(d, False), X11Connection::errorCount() == errorsBefore);
    shmctl(shm->info.shmid, IPC_RMID, nullptr);
    if (!attached) {
        shmdt(shm->info.shmaddr);
        return false;
    }
    shm->capacity = bytes;
    shm_ = std::move(shm);
    return true;
}

// An image of exactly the requested size over the shared segment, or nothing.
XImage* X11ScreenReader::shmImage(int width, int height) {
    XImage* image = XShmCreateImage(x_.display(), visual_, static_cast<unsigned>(depth_), ZPixmap, nullptr, nullptr,
                                    static_cast<unsigned>(width), static_cast<unsigned>(height));
    if (!image) return nullptr;
    const std::size_t bytes = static_cast<std::size_t>(image->bytes_per_line) * height;
    XDestroyImage(image);
    if (!reserveShm(bytes)) {
        useShm_ = false;
        return nullptr;
    }
    image = XShmCreateImage(x_.display(), visual_, static_cast<unsigned>(depth_), ZPixmap, shm_->info.shmaddr,
                            &shm_->info, static_cast<unsigned>(width), static_cast<unsigned>(height));
    return image;
}

void X11ScreenReader::readRect(const ScreenRect& rect, std::span<Colour> out) {
    const int width = rect.width();
    const int height = rect.height();
    if (width == 0 || height == 0) return;
    std::fill(out.begin(), out.end(), kOffScreen);

    const std::optional<Visible> part = visiblePart(x_.screenLayout(), rect);
    if (!part) return;
    const auto [x, y, w, h, skipped] = *part;
    XImage* image = useShm_ ? shmImage(w, h) : nullptr;
    const bool fromShm = image && XShmGetImage(x_.display(), x_.root(), image, x, y, AllPlanes);
    if (image && !fromShm) {
        image->data = nullptr;
        XDestroyImage(image);
    }
    if (!fromShm) image = XGetImage(x_.display(), x_.root(), x, y, static_cast<unsigned>(w),
                                    static_cast<unsigned>(h), AllPlanes, ZPixmap);
    if (!image) return;
    convert(image, w, h, out.subspan(skipped), width);
    if (fromShm) image->data = nullptr;  // the segment stays for the next read
    XDestroyImage(image);
}

// Into 0x00BBGGRR; the usual 32-bit 0x00RRGGBB layout takes the short way.
void X11ScreenReader::convert(XImage* image, int w, int h, std::span<Colour> out, int outStride) const {
    const bool usual = image->bits_per_pixel == 32 && image->red_mask == 0xFF0000 && image->green_mask == 0xFF00 &&
                       image->blue_mask == 0xFF && image->byte_order == LSBFirst;
    const Channel red(image->red_mask);
    const Channel green(image->green_mask);
    const Channel blue(image->blue_mask);
    for (int y = 0; y < h; ++y) {
        Colour* row = out.data() + static_cast<std::size_t>(y) * outStride;
        if (usual) {
            const auto* src = reinterpret_cast<const std::uint32_t*>(image->data + static_cast<std::size_t>(y) * image->bytes_per_line);
            for (int x = 0; x < w; ++x) {
                const std::uint32_t p = src[x];
                row[x] = static_cast<Colour>(((p & 0xFF) << 16) | (p & 0xFF00) | ((p >> 16) & 0xFF));
            }
            continue;
        }
        for (int x = 0; x < w; ++x) {
            const unsigned long p = XGetPixel(image, x, y);
            row[x] = static_cast<Colour>(red.eightBits(p) | (green.eightBits(p) << 8) | (blue.eightBits(p) << 16));
        }
    }
}

}  // namespace quorlin::x11
