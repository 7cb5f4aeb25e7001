// Preloaded into a program that is being measured: at the end of the first picture that any of its
// windows shows, writes the time (CLOCK_MONOTONIC, nanoseconds, 8 bytes) to the file descriptor in
// FIRST_PAINT_FD and ends the program.

#include <QBackingStore>

#include <dlfcn.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>

void QBackingStore::flush(const QRegion& region, QWindow* window, const QPoint& offset) {
    using Flush = void (*)(QBackingStore*, const QRegion&, QWindow*, const QPoint&);
    const auto original = reinterpret_cast<Flush>(
        dlsym(RTLD_NEXT, "_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint"));
    original(this, region, window, offset);
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const std::int64_t time = std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
    const char* const descriptor = std::getenv("FIRST_PAINT_FD");
    if (!descriptor || ::write(std::atoi(descriptor), &time, sizeof time) != sizeof time)
        _exit(1);
    _exit(0);
}
