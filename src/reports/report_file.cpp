#include "reports/report_file.h"

#include "core/platform_files.h"
#include "database/database_error.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
/// The number of the error "path or file access".
constexpr int FileAccessError = 75;
/// In bytes: how much is gathered before it is written.
constexpr qint64 BlockSize = 1 << 16;
} // namespace

QString ReportFilePath(const ProgramFolder& folder) {
    return QDir(folder.Path()).filePath(u"PRINT.TXT"_s);
}

// Unbuffered: the failure of a flush that Qt does by itself, when a file is closed, is lost.
ReportFile::ReportFile(const ProgramFolder& folder) : beside_(ReportFilePath(folder)) {
    if (beside_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return;
    const QFileInfo former(beside_.fileName());
    Require(former.isFile() && former.isWritable(), beside_);
    written_ = &elsewhere_;
    Require(written_->open(QIODevice::ReadWrite | QIODevice::Unbuffered), elsewhere_);
}

void ReportFile::Write(const QString& line) {
    gathered_ += line.toUtf8();
    gathered_ += "\r\n";
    if (gathered_.size() >= BlockSize)
        WriteGathered();
}

void ReportFile::Commit() {
    WriteGathered();
    if (written_ == &elsewhere_)
        return CopyOverFormer();
    Require(HasReachedDisk(beside_), beside_);
    Require(beside_.commit(), beside_);
}

void ReportFile::WriteGathered() {
    WriteAll(*written_, gathered_);
    gathered_.clear();
}

void ReportFile::CopyOverFormer() {
    QFile former(beside_.fileName());
    Require(former.open(QIODevice::ReadWrite | QIODevice::Unbuffered), former);
    const qint64 formerSize = former.size();
    const auto copy = [&](qint64 from, qint64 to) {
        Require(elsewhere_.seek(from) && former.seek(from), elsewhere_);
        for (qint64 at = from; at < to; at += BlockSize) {
            const QByteArray block = elsewhere_.read(qMin(BlockSize, to - at));
            Require(!block.isEmpty(), elsewhere_);
            WriteAll(former, block);
        }
    };
    try {
        copy(formerSize, elsewhere_.size());
        Require(HasReachedDisk(former), former);
    } catch (const ProgramError&) {
        former.resize(formerSize);
        throw;
    }
    copy(0, qMin(formerSize, elsewhere_.size()));
    Require(former.resize(elsewhere_.size()) && HasReachedDisk(former), former);
}

void ReportFile::WriteAll(QFileDevice& file, const QByteArray& bytes) const {
    // Where there is room for a part only, the reason comes with the next attempt.
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 count = file.write(bytes.constData() + done, bytes.size() - done);
        Require(count > 0, file);
        done += count;
    }
}

void ReportFile::Require(bool condition, const QFileDevice& file) const {
    if (!condition)
        throw ProgramError(FileAccessError,
                           u"Berkas laporan %1 tidak dapat ditulis: %2"_s.arg(
                               QDir::toNativeSeparators(beside_.fileName()), file.errorString()));
}
