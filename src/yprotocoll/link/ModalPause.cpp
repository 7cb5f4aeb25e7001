#include "yprotocoll/link/ModalPause.h"

void ModalPause::setActive(bool active) {
    const bool ends = m_active && !active;
    m_active = active;
    if (ends)
        Q_EMIT ended();
}
