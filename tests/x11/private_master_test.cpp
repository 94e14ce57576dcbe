#include <gtest/gtest.h>

#include <X11/extensions/XInput2.h>
#include <sys/wait.h>

#include <algorithm>

#include "x11/x11_private_master.h"
#include "x11_fixtures.h"

namespace quorlin::testing {
namespace {

bool hasMaster(Display* d, const std::string& name) {
    int count = 0;
    XIDeviceInfo* devices = XIQueryDevice(d, XIAllMasterDevices, &count);
    const bool found = std::any_of(devices, devices + count, [&](const XIDeviceInfo& i) { return i.name == name; });
    XIFreeDeviceInfo(devices);
    return found;
}

// A pair left by a process that has ended goes at the next start; a running
// instance's pair stays; the program's own pair goes with it.
TEST(PrivateMaster, LeftoversOfEndedProcessesGoAtStartAndTheOwnPairAtTheEnd) {
    PrivateDisplay server;
    Display* d = server.d;
    const pid_t ended = fork();
    if (ended == 0) _exit(0);
    waitpid(ended, nullptr, 0);
    const std::string left = "Quorlin " + std::to_string(ended);
    const std::string running = "Quorlin " + std::to_string(getppid());
    const std::string own = "Quorlin " + std::to_string(getpid());
    for (std::string name : {left, running}) {
        XIAddMasterInfo add{XIAddMaster, name.data(), False, True};
        XIChangeHierarchy(d, reinterpret_cast<XIAnyHierarchyChangeInfo*>(&add), 1);
    }
    XSync(d, False);
    {
        x11::PrivateMaster master(DisplayString(d));
        EXPECT_FALSE(hasMaster(d, left + " pointer"));
        EXPECT_TRUE(hasMaster(d, running + " pointer"));
        ASSERT_TRUE(master.ready());
        EXPECT_TRUE(hasMaster(d, own + " pointer") && hasMaster(d, own + " keyboard"));
    }
    EXPECT_FALSE(hasMaster(d, own + " pointer") || hasMaster(d, own + " keyboard"));
}

}  // namespace
}  // namespace quorlin::testing
