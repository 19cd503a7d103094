#pragma once

#include <QFile>
#include <QLockFile>
#include <QString>

#include <exception>
#include <memory>

namespace modGeneral {

/// The module name in every record of the log.
inline constexpr QStringView ModuleName = u"VELT";

/// The fixed place of the error log: C:\VELTLOG.TXT on Windows, the user's state folder elsewhere.
QString ErrorLogPath();

/// The program's error log. The first error of a run empties the file; it then stays open, one line an error.
/// Programs that run side by side write a file each: "VELTLOG.TXT", "VELTLOG-2.TXT" and so on. No failure to
/// write it ever reaches the user.
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

    QString path_;
    /// Held as long as the file is this program's; it ends with the process, however that ends.
    std::unique_ptr<QLockFile> lock_;
    QFile file_;
};

} // namespace modGeneral
