#include "core/clock.h"

#ifdef Q_OS_LINUX
#include <ctime>
#endif

Seconds SystemClock::Elapsed() const {
#ifdef Q_OS_LINUX
    timespec now{};
    if (clock_gettime(CLOCK_BOOTTIME, &now) == 0)
        return Seconds{now.tv_sec};
#endif
    return std::chrono::duration_cast<Seconds>(std::chrono::steady_clock::now().time_since_epoch());
}
