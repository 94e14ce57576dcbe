#pragma once

#include <memory>

#include <X11/Xlib.h>

#include "ports/screen_reader.h"
#include "x11/x11_connection.h"

namespace quorlin::x11 {

// Reads screen pixels as 0x00BBGGRR, a whole rectangle per request.
class X11ScreenReader : public ScreenReader {
public:
    explicit X11ScreenReader(X11Connection& connection);
    ~X11ScreenReader() override;

    void readRect(const ScreenRect& rect, std::span<Colour> out) override;

private:
    struct Shm;
    XImage* shmImage(int width, int height);
    bool reserveShm(std::size_t bytes);
    void releaseShm();
    void convert(XImage* image, int w, int h, std::span<Colour> out, int outStride) const;

    X11Connection& x_;
    Visual* visual_ = nullptr;
    int depth_ = 0;
    bool useShm_ = false;
    std::unique_ptr<Shm> shm_;
};

}  // namespace quorlin::x11
