#pragma once

#include <QFile>
#include <QString>

#include <exception>

namespace modGeneral {

/// The module name in every record of the log.
inline constexpr QStringView ModuleName = u"VELT";

/// The fixed place of the error log: C:\VELTLOG.TXT on Windows, the user's state folder elsewhere.
QString ErrorLogPath();

/// The program's error log. The first error of a run empties the file; it then stays open, one line an error.
/// No failure to write it ever reaches the user.
class ErrorLog {
public:
    explicit ErrorLog(const QString& path = ErrorLogPath());

    void WriteLog(const QString& text);

    /// Writes one record: error number, description, module and procedure, each followed by "~".
    void LogError(int number, const QString& description, const QString& procedure,
                  const QString& module = ModuleName.toString());
    /// The same of an error, with the words that the user is shown, so that log and message can be matched.
    void LogError(const std::exception& error, const QString& procedure);

private:
    bool Open();

    QFile file_;
};

} // namespace modGeneral
