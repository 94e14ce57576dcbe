#pragma once

#include "x11/x11_input_route.h"
#include "x11/x11_private_master.h"
#include "x11/x11_window_chain.h"

namespace quorlin::x11 {

// Input as real device events of the private pointer and keyboard, for targets that
// take input only through XInput 2 (which no sent event can carry). The private
// pointer clicks where it stands, so it goes to the point for the clicks and back to
// rest under the user's pointer afterwards; the private keyboard's focus is the
// target's top level while keys are typed. The pair sends no core events, so the window
// manager's click-to-focus, a core grab, never sees these clicks: the user's focus and
// the stacking stay as they are.
class DeviceRoute : public InputRoute {
public:
    // userDisplay is a connection that speaks for the user's own pointer.
    DeviceRoute(PrivateMaster& master, Display* userDisplay, WindowChain chain);

    // Whether the private pointer, standing at the point, is over the target itself.
    bool reaches(int rootX, int rootY);

    void press(unsigned int button, int rootX, int rootY, std::chrono::milliseconds wait) override;
    void release(unsigned int button, int rootX, int rootY) override;
    void type(const KeyStroke& stroke) override;
    void end() override;

private:
    void moveTo(int rootX, int rootY);
    void shift(bool down);

    PrivateMaster& master_;
    Display* user_;
    WindowChain chain_;
    unsigned int buttonsDown_ = 0;
    bool moved_ = false;
    bool focused_ = false;
};

}  // namespace quorlin::x11
