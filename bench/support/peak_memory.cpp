#include "support/peak_memory.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

int PeakMemory() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        throw std::runtime_error("this system does not tell how much memory is used");
    const QByteArray text = status.readAll();
    const QByteArray value = text.sliced(text.indexOf("VmHWM:") + 6);
    return value.first(value.indexOf("kB")).trimmed().toInt();
}

} // namespace

int TellPeakMemory(const std::function<void()>& work) {
    try {
        work();
        std::printf("%d\n", PeakMemory());
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}

int PeakMemoryOf(const QStringList& arguments) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  QStringList{QString::fromLatin1(MemoryOption)} + arguments);
    process.waitForFinished(-1);
    const int peak = process.readAllStandardOutput().trimmed().toInt();
    if (peak <= 0)
        throw std::runtime_error("the peak of the memory was not told");
    return peak;
}
