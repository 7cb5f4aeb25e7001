// A program for the simulator to run: finds the controller's tty by its USB numbers, asks for the
// version, and says what it sees, one line an event, until its standard input ends.

#include <fcntl.h>
#include <libudev.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

struct Unref {
    void operator()(udev* p) const { udev_unref(p); }
    void operator()(udev_enumerate* p) const { udev_enumerate_unref(p); }
    void operator()(udev_monitor* p) const { udev_monitor_unref(p); }
    void operator()(udev_device* p) const { udev_device_unref(p); }
};
template <class T>
using Owned = std::unique_ptr<T, Unref>;

bool hasText(const char* text, const char* expected) {
    return text && std::strcmp(text, expected) == 0;
}

bool isController(udev_device* device) {
    udev_device* usb = udev_device_get_parent_with_subsystem_devtype(device, "usb", "usb_device");
    return usb && hasText(udev_device_get_sysattr_value(usb, "idVendor"), "7a51") &&
           hasText(udev_device_get_sysattr_value(usb, "idProduct"), "0c24");
}

/// Opens the tty, makes it raw through its ioctls, asks for the version and prints the answer.
int greet(udev_device* device) {
    const int fd = open(udev_device_get_devnode(device), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings{};
    if (fd < 0 || tcgetattr(fd, &settings) != 0)
        return -1;
    cfmakeraw(&settings);
    tcsetattr(fd, TCSANOW, &settings);
    const std::array<unsigned char, 4> command{'Y', 1, 0, 1};
    if (write(fd, command.data(), command.size()) != 4)
        return -1;
    std::printf("version %s", udev_device_get_sysname(device));
    for (int i = 0, length = 4; i < length; ++i) {
        unsigned char byte = 0;
        if (read(fd, &byte, 1) != 1)
            return -1;
        if (i == 2)
            length += byte;
        std::printf(" %02x", byte);
    }
    std::printf("\n");
    return fd;
}

int greetPresent(udev* context) {
    const Owned<udev_enumerate> list(udev_enumerate_new(context));
    udev_enumerate_add_match_subsystem(list.get(), "tty");
    udev_enumerate_scan_devices(list.get());
    int fd = -1;
    for (auto* entry = udev_enumerate_get_list_entry(list.get()); entry;
         entry = udev_list_entry_get_next(entry)) {
        const Owned<udev_device> device(
            udev_device_new_from_syspath(context, udev_list_entry_get_name(entry)));
        std::printf("present %s%s\n", udev_device_get_sysname(device.get()),
                    isController(device.get()) ? " controller" : "");
        if (isController(device.get()))
            fd = greet(device.get());
    }
    return fd;
}

} // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const Owned<udev> context(udev_new());
    const Owned<udev_monitor> monitor(udev_monitor_new_from_netlink(context.get(), "udev"));
    udev_monitor_filter_add_match_subsystem_devtype(monitor.get(), "tty", nullptr);
    udev_monitor_enable_receiving(monitor.get());
    int tty = greetPresent(context.get());
    std::printf("ready\n");
    for (;;) {
        std::array<pollfd, 3> fds{pollfd{STDIN_FILENO, POLLIN, 0},
                                  pollfd{udev_monitor_get_fd(monitor.get()), POLLIN, 0},
                                  pollfd{tty, 0, 0}};
        poll(fds.data(), fds.size(), -1);
        char ignored = 0;
        if (fds[0].revents != 0 && read(STDIN_FILENO, &ignored, 1) <= 0)
            return argc > 1 ? std::atoi(argv[1]) : 0;
        if (fds[2].revents & POLLHUP) {
            std::printf("hangup\n");
            close(tty);
            tty = -1;
        }
        if (fds[1].revents == 0)
            continue;
        const Owned<udev_device> device(udev_monitor_receive_device(monitor.get()));
        const std::string action = udev_device_get_action(device.get());
        std::printf("%s %s\n", action.c_str(), udev_device_get_sysname(device.get()));
        if (action == "add" && isController(device.get()))
            tty = greet(device.get());
    }
}
