#include "x11/x11_private_master.h"

#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace quorlin::x11 {

namespace {

constexpr char kPointerSuffix[] = " pointer";
constexpr char kKeyboardSuffix[] = " keyboard";

std::string masterName(long pid) { return "Quorlin " + std::to_string(pid); }

// The process that made a pair, read from its name; 0 for other devices.
long ownerOf(const char* deviceName) {
    long pid = 0;
    char rest[16] = {};
    if (std::sscanf(deviceName, "Quorlin %ld%15s", &pid, rest) != 2) return 0;
    return std::strcmp(rest, "pointer") == 0 ? pid : 0;
}

bool processEnded(long pid) { return kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH; }

}  // namespace

PrivateMaster::PrivateMaster(const std::string& displayName) : d_(XOpenDisplay(displayName.c_str())) {
    if (d_ && extensionsPresent()) removeLeftovers();
}

PrivateMaster::~PrivateMaster() {
    if (!d_) return;
    if (pointer_) remove(pointer_);
    XCloseDisplay(d_);
}

bool PrivateMaster::ready() {
    if (!tried_) {
        tried_ = true;
        if (d_ && extensionsPresent()) create();
    }
    return pointer_ != 0;
}

bool PrivateMaster::extensionsPresent() {
    int opcode = 0;
    int event = 0;
    int error = 0;
    int major = 2;
    int minor = 2;
    int xtestMinor = 0;
    return XQueryExtension(d_, "XInputExtension", &opcode, &event, &error) &&
           XIQueryVersion(d_, &major, &minor) == Success && (major > 2 || minor >= 2) &&
           XTestQueryExtension(d_, &event, &error, &major, &xtestMinor);
}

// Only pairs whose maker is gone on this machine are taken away: another running
// instance keeps its own.
void PrivateMaster::removeLeftovers() {
    int count = 0;
    XIDeviceInfo* devices = XIQueryDevice(d_, XIAllMasterDevices, &count);
    for (int i = 0; i < count; ++i) {
        const long owner = ownerOf(devices[i].name);
        if (devices[i].use == XIMasterPointer && owner != 0 && owner != getpid() && processEnded(owner))
            remove(devices[i].deviceid);
    }
    if (devices) XIFreeDeviceInfo(devices);
}

bool PrivateMaster::create() {
    std::string name = masterName(getpid());
    XIAddMasterInfo add{};
    add.type = XIAddMaster;
    add.name = name.data();
    add.send_core = False;
    add.enable = True;
    XIChangeHierarchy(d_, reinterpret_cast<XIAnyHierarchyChangeInfo*>(&add), 1);
    int count = 0;
    XIDeviceInfo* devices = XIQueryDevice(d_, XIAllMasterDevices, &count);
    for (int i = 0; i < count; ++i) {
        if (devices[i].name == name + kPointerSuffix) pointer_ = devices[i].deviceid;
        if (devices[i].name == name + kKeyboardSuffix) keyboard_ = devices[i].deviceid;
    }
    if (devices) XIFreeDeviceInfo(devices);
    if (pointer_ == 0 || keyboard_ == 0) return pointer_ = keyboard_ = 0, false;
    XISetClientPointer(d_, None, pointer_);
    XSync(d_, False);
    return true;
}

// The test devices go back to floating; nothing is attached to the user's pair.
void PrivateMaster::remove(int pointer) {
    XIRemoveMasterInfo removal{};
    removal.type = XIRemoveMaster;
    removal.deviceid = pointer;
    removal.return_mode = XIFloating;
    XIChangeHierarchy(d_, reinterpret_cast<XIAnyHierarchyChangeInfo*>(&removal), 1);
    XSync(d_, False);
}

}  // namespace quorlin::x11
