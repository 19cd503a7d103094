#include "exchange/access_file.h"

#include "database/database_error.h"
#include "exchange/access_stream.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int AccessNumber = 90023;
/// How long the reader may be silent, in milliseconds. Even the slowest disk gives a page in less.
constexpr int Patience = 60'000;
constexpr qint64 PartSize = 1 << 16;

[[noreturn]] void RefuseDamaged(const QString& path, const QString& why) {
    throw ProgramError(ErrorKind::AccessDamaged, AccessNumber, u"%1 is damaged: %2"_s.arg(path, why),
                       {path, why});
}

/// The reading process and what it tells.
class Reader {
public:
    Reader(const QString& path, const QStringList& tables) : path_(path) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            throw ProgramError(ErrorKind::FileUnreadable, AccessNumber,
                               u"%1 cannot be read: %2"_s.arg(path, file.errorString()),
                               {path, file.errorString()});
        const QString program = QDir(QCoreApplication::applicationDirPath()).filePath(u"tadata-access"_s);
        process_.start(program, QStringList{path} + tables);
        if (!process_.waitForStarted())
            throw ProgramError(ErrorKind::FileUnreadable, AccessNumber,
                               u"%1 cannot be started: %2"_s.arg(program, process_.errorString()),
                               {program, process_.errorString()});
    }
    ~Reader() {
        process_.kill();
        process_.waitForFinished();
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    /// The next message: a Table, Linked or Row; Complete once the file was read without fault.
    char Message() {
        const char message = *Bytes(1);
        switch (message) {
        case AccessStream::Foreign:
            throw ProgramError(ErrorKind::AccessForeign, AccessNumber,
                               u"%1 is no Access database"_s.arg(path_), {path_});
        case AccessStream::Protected:
            throw ProgramError(ErrorKind::AccessProtected, AccessNumber,
                               u"%1 is protected by a password; take it off in Access first"_s.arg(path_),
                               {path_});
        case AccessStream::Damaged:
            RefuseDamaged(path_, NextText());
        case AccessStream::Complete:
            ExpectGoodEnd();
            return message;
        default:
            return message;
        }
    }

    /// Null for null.
    QString NextText() {
        const auto* size = reinterpret_cast<const unsigned char*>(Bytes(4));
        std::uint32_t length = 0;
        for (int i = 3; i >= 0; --i)
            length = length << 8 | size[i];
        if (length == AccessStream::Null)
            return {};
        if (length >= AccessStream::LongestText)
            RefuseDamaged(path_, u"a text is too long"_s);
        const auto count = static_cast<qsizetype>(length);
        const QString text = QString::fromUtf8(Bytes(count), count);
        return text.isNull() ? u""_s : text;
    }

private:
    /// The next bytes of the stream; they stand until more are asked for.
    const char* Bytes(qsizetype count) {
        while (buffer_.size() - at_ < count) {
            buffer_.remove(0, at_);
            at_ = 0;
            if (process_.bytesAvailable() == 0 && !process_.waitForReadyRead(Patience))
                RefuseDamaged(path_, EndedBecause());
            buffer_ += process_.read(PartSize);
        }
        const char* const bytes = buffer_.constData() + at_;
        at_ += count;
        return bytes;
    }

    /// What the library says on the way is a fault of the file, too.
    void ExpectGoodEnd() {
        process_.waitForFinished(Patience);
        const QString complaint = QString::fromLocal8Bit(process_.readAllStandardError()).trimmed();
        if (process_.exitStatus() != QProcess::NormalExit || process_.exitCode() != 0 || !complaint.isEmpty())
            RefuseDamaged(path_, complaint.isEmpty() ? EndedBecause() : complaint.section(u'\n', 0, 0));
    }

    QString EndedBecause() const {
        return process_.state() == QProcess::Running ? u"reading it does not end"_s : u"reading it fails"_s;
    }

    QString path_;
    QProcess process_;
    QByteArray buffer_;
    qsizetype at_ = 0;
};

SourceTable NextTable(Reader& reader) {
    SourceTable table{reader.NextText(), {}};
    reader.NextText(); // the number of rows, which the reader itself counts
    const int columns = reader.NextText().toInt();
    for (int i = 0; i < columns; ++i) {
        const QString name = reader.NextText();
        table.columns << name.sliced(1);
        table.untold.push_back(name.front() == QLatin1Char(AccessStream::Untold));
    }
    return table;
}

} // namespace

std::vector<SourceTable> AccessFile::Tables() {
    Reader reader(path_, {});
    std::vector<SourceTable> tables;
    for (char message = reader.Message(); message != AccessStream::Complete; message = reader.Message()) {
        if (message == AccessStream::Linked)
            tables.push_back({reader.NextText(), {}, {}, true});
        else
            tables.push_back(NextTable(reader));
    }
    return tables;
}

bool AccessFile::ReadRows(const std::vector<SourceTable>& tables, const RowSink& sink) {
    QStringList names;
    for (const SourceTable& table : tables)
        names << table.name;
    if (names.isEmpty())
        return true;
    Reader reader(path_, names);
    SourceTable table;
    size_t place = 0;
    QStringList values;
    for (char message = reader.Message(); message != AccessStream::Complete; message = reader.Message()) {
        if (message == AccessStream::Table) {
            table = NextTable(reader);
            place = static_cast<size_t>(names.indexOf(table.name));
            continue;
        }
        values.clear();
        for (qsizetype i = 0; i < table.columns.size(); ++i)
            values << reader.NextText();
        if (!sink(place, values))
            return false;
    }
    return true;
}
