#pragma once

#include "core/line_sink.h"
#include "core/program_folder.h"

#include <QByteArray>
#include <QSaveFile>
#include <QString>
#include <QTemporaryFile>

#include <utility>

/// The one report file, PRINT.TXT in the program folder; every report replaces it.
QString ReportFilePath(const ProgramFolder& folder);

/// Writes the report file line by line: UTF-8, each line ended by CR LF. The former report stays as it is
/// until Commit; without Commit it stays for good. All functions throw ProgramError when the file cannot be
/// written.
///
/// Where the folder takes no new files, the new report is written over the former one, and only when it is
/// complete. What needs more room on the disk is written first, so that a full disk leaves the former report
/// whole there too; only a disk or connection that fails in the midst can spoil it.
class ReportFile {
public:
    explicit ReportFile(const ProgramFolder& folder);

    void Write(const QString& line);
    /// Replaces the former report by the lines written. Nothing can be written afterwards.
    void Commit();

private:
    void WriteGathered();
    void CopyOverFormer();
    /// Writes all bytes at the present place of the file.
    void WriteAll(QFileDevice& file, const QByteArray& bytes) const;
    /// Throws when the condition does not hold, with the file's reason.
    void Require(bool condition, const QFileDevice& file) const;

    QByteArray gathered_;
    QSaveFile beside_;
    QTemporaryFile elsewhere_; ///< used where the folder takes no new files
    QFileDevice* written_ = &beside_;
};

/// Replaces the report file by the lines that the print hands to the sink; returns what the print returns.
/// The file stays as it is when that is nothing or false, which means stopped, and when something is thrown.
template<class Print>
auto WriteReportFile(const ProgramFolder& folder, Print&& print) {
    ReportFile file(folder);
    const LineSink sink = [&file](const QString& line) { file.Write(line); };
    auto printed = std::forward<Print>(print)(sink);
    if (printed)
        file.Commit();
    return printed;
}
