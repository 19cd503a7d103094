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

ErrorLog::ErrorLog(const QString& path) : file_(path) {}

bool ErrorLog::Open() {
    QDir().mkpath(QFileInfo(file_.fileName()).absolutePath());
    return file_.open(QIODevice::WriteOnly | QIODevice::Truncate);
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
