#include "core/error_log.h"

#include "core/error_words.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_WIN
constexpr QByteArrayView LineEnd = "\r\n";
#else
constexpr QByteArrayView LineEnd = "\n";
#endif

const QString CrLf = u"\r\n"_s;

constexpr int MostPrograms = 99;

/// "VELTLOG.TXT" for the first program, "VELTLOG-2.TXT" for the second.
QString Numbered(const QString& path, int number) {
    if (number == 1)
        return path;
    const QFileInfo first(path);
    return u"%1/%2-%3.%4"_s.arg(first.path(), first.completeBaseName(), QString::number(number),
                                first.suffix());
}

} // namespace

namespace modGeneral {

QString ErrorLogPath() {
#ifdef Q_OS_WIN
    return u"C:\\VELTLOG.TXT"_s;
#else
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    const QString folder = QDir::isAbsolutePath(state) ? state : QDir::homePath() + u"/.local/state"_s;
    return folder + u"/timeattendance/VELTLOG.TXT"_s;
#endif
}

ErrorLog::ErrorLog(const QString& path) : path_(path) {}

bool ErrorLog::Open() {
    QDir().mkpath(QFileInfo(path_).absolutePath());
    for (int number = 1; !lock_ && number <= MostPrograms; ++number) {
        const QString path = Numbered(path_, number);
        auto lock = std::make_unique<QLockFile>(path + u".lock"_s);
        lock->setStaleLockTime(0); // the age of a lock says nothing: its program may run for days
        // Where no lock can be made at all, the file is written without one.
        if (lock->tryLock() || lock->error() != QLockFile::LockFailedError) {
            lock_ = std::move(lock);
            file_.setFileName(path);
        }
    }
    return lock_ && file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Truncate);
}

void ErrorLog::WriteLog(const QString& text) {
    if (!file_.isOpen() && !Open())
        return;
    const QByteArray line = text.toUtf8().append(LineEnd);
    if (file_.write(line) == line.size() && file_.flush())
        return;
    file_.close();
    Open();
}

void ErrorLog::LogError(int number, const QString& description, const QString& procedure,
                        const QString& module) {
    QString record = u"Error Number: "_s + QString::number(number) + u"."_s + CrLf + u"Error Description: "_s
                     + description + CrLf + u"Module Name: "_s + module + CrLf + u"Sub/Function: "_s
                     + procedure + CrLf;
    record.replace(CrLf, u"~"_s);
    // One record is one line, whatever line ends the engine put into its description.
    record.replace(u'\n', u' ');
    WriteLog(record);
}

void ErrorLog::LogError(const std::exception& error, const QString& procedure) {
    const auto* known = dynamic_cast<const ProgramError*>(&error);
    LogError(known ? known->Number() : 0, UserText(error), procedure);
}

} // namespace modGeneral
