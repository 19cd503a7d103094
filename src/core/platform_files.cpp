#include "core/platform_files.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <cerrno>
#include <csignal>
#include <unistd.h>
#endif

void TellFileSizeLimitAsError() {
#ifndef Q_OS_WIN
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

bool HasReachedDisk(const QFileDevice& file) {
#ifdef Q_OS_WIN
    return _commit(file.handle()) == 0;
#else
    // What cannot wait for a disk (a pipe, some file systems) answers so; nothing was refused.
    return fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
#endif
}
