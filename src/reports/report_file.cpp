#include "reports/report_file.h"

#include "database/database_error.h"

#include <QDir>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {
/// The number of the error "path or file access".
constexpr int FileAccessError = 75;
} // namespace

QString ReportFilePath(const ProgramFolder& folder) {
    return QDir(folder.Path()).filePath(u"PRINT.TXT"_s);
}

void WriteReportFile(const ProgramFolder& folder, const QStringList& lines) {
    QSaveFile file(ReportFilePath(folder));
    // A folder that takes no new files may still hold a report file that can be written.
    file.setDirectWriteFallback(true);
    bool written = file.open(QIODevice::WriteOnly);
    for (const QString& line : lines) {
        if (!written)
            break;
        const QByteArray bytes = line.toUtf8() + "\r\n";
        written = file.write(bytes) == bytes.size();
    }
    if (!written || !file.commit())
        throw ProgramError(FileAccessError,
                           u"Berkas laporan %1 tidak dapat ditulis: %2"_s.arg(
                               QDir::toNativeSeparators(file.fileName()), file.errorString()));
}
