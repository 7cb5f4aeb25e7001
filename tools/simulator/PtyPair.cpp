#include "simulator/PtyPair.h"

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <system_error>

PtyPair::PtyPair() {
    termios settings{};
    cfmakeraw(&settings);
    settings.c_cflag |= CREAD | CLOCAL;
    cfsetspeed(&settings, B115200);
    std::array<char, PATH_MAX> path{};
    if (openpty(&m_master, &m_slave, nullptr, &settings, nullptr) != 0 ||
        ttyname_r(m_slave, path.data(), path.size()) != 0)
        throw std::system_error(errno, std::generic_category(), "openpty");
    m_slavePath = path.data();
    for (const int end : {m_master, m_slave})
        fcntl(end, F_SETFD, FD_CLOEXEC);
    fcntl(m_master, F_SETFL, fcntl(m_master, F_GETFL) | O_NONBLOCK);
}

PtyPair::~PtyPair() {
    close();
}

void PtyPair::close() {
    if (!isOpen())
        return;
    ::close(m_slave);
    ::close(m_master);
    m_slave = m_master = -1;
}
