#pragma once

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
    X11Connection& x_;
};

}  // namespace quorlin::x11
