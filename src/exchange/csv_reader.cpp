#include "exchange/csv_reader.h"

#include "database/database_error.h"

#include <csv.h>

#include <QFile>
#include <QStringDecoder>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int CsvNumber = 90020;
/// In bytes; a longer line is read in parts.
constexpr qint64 PartSize = 1 << 16;
constexpr QByteArrayView Utf8Mark("\xEF\xBB\xBF");

/// What the bytes 0x80 to 0x9F stand for; above, the codes are those of Unicode. Five stand for nothing.
constexpr std::array<char16_t, 32> Windows1252{
    u'\u20AC', u'\uFFFD', u'\u201A', u'\u0192', u'\u201E', u'\u2026', u'\u2020', u'\u2021',
    u'\u02C6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', u'\uFFFD', u'\u017D', u'\uFFFD',
    u'\uFFFD', u'\u2018', u'\u2019', u'\u201C', u'\u201D', u'\u2022', u'\u2013', u'\u2014',
    u'\u02DC', u'\u2122', u'\u0161', u'\u203A', u'\u0153', u'\uFFFD', u'\u017E', u'\u0178'};

QString FromWindows1252(QByteArrayView bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text) {
        if (c >= u'\u0080' && c <= u'\u009F')
            c = Windows1252[c.unicode() - 0x80];
    }
    return text;
}

void OpenToRead(QFile& file) {
    if (!file.open(QIODevice::ReadOnly))
        throw ProgramError(ErrorKind::FileUnreadable, CsvNumber,
                           u"%1 cannot be read: %2"_s.arg(file.fileName(), file.errorString()),
                           {file.fileName(), file.errorString()});
}

/// Whether the whole file is UTF-8. What holds a zero byte is no text of bytes at all.
bool IsUtf8(QFile& file) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    bool isUtf8 = true;
    for (QByteArray part = file.read(PartSize); !part.isEmpty(); part = file.read(PartSize)) {
        if (part.contains('\0'))
            throw ProgramError(
                ErrorKind::NoTextFile, CsvNumber,
                u"%1 is no text in UTF-8 or Windows-1252; save it as CSV"_s.arg(file.fileName()),
                {file.fileName()});
        if (isUtf8) {
            const QString decoded = decoder(part);
            isUtf8 = !decoder.hasError();
        }
    }
    return isUtf8;
}

/// The separator that stands most often outside of quotes in the line.
char SeparatorIn(QByteArrayView line) {
    constexpr std::array separators{',', ';', '\t'};
    std::array<int, separators.size()> counts{};
    bool quoted = false;
    for (const char c : line) {
        quoted = quoted != (c == '"');
        for (size_t i = 0; i < separators.size(); ++i)
            counts[i] += !quoted && c == separators[i] ? 1 : 0;
    }
    return separators[static_cast<size_t>(std::ranges::max_element(counts) - counts.begin())];
}

class Parser {
public:
    Parser(const CsvForm& form, const CsvSink& sink) : form_(form), sink_(sink) {
        csv_init(&parser_, CSV_EMPTY_IS_NULL);
        csv_set_delim(&parser_, static_cast<unsigned char>(form.separator));
    }
    ~Parser() { csv_free(&parser_); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    /// Takes a part of a line, or a whole one with its end. False once the sink wants no more.
    bool Take(QByteArrayView part, int line) {
        line_ = line;
        if (betweenRows_) {
            if (part.trimmed().isEmpty())
                return true;
            rowLine_ = line;
            betweenRows_ = false;
        }
        const auto size = static_cast<size_t>(part.size());
        if (csv_parse(&parser_, part.data(), size, OnCell, OnRow, this) != size)
            throw std::bad_alloc(); // nothing else stops a parser that is not strict
        return wanted_;
    }

    void Finish(const QString& path) {
        // Lenient with quotes inside of cells, but not with one that swallows the rest of the file.
        csv_set_opts(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_EMPTY_IS_NULL);
        if (csv_fini(&parser_, OnCell, OnRow, this) != 0)
            throw ProgramError(ErrorKind::QuoteOpen, CsvNumber,
                               u"%1, line %2: a quoted cell does not end"_s.arg(path).arg(rowLine_),
                               {path, QString::number(rowLine_)});
    }

private:
    static void OnCell(void* bytes, size_t size, void* self) {
        auto* parser = static_cast<Parser*>(self);
        const QByteArrayView cell(static_cast<const char*>(bytes), static_cast<qsizetype>(size));
        parser->cells_ << WithoutFormulaMark(parser->form_.isUtf8 ? QString::fromUtf8(cell)
                                                                  : FromWindows1252(cell));
    }

    static void OnRow(int, void* self) {
        auto* parser = static_cast<Parser*>(self);
        const bool isBlank = std::ranges::all_of(parser->cells_, &QString::isEmpty);
        if (parser->wanted_ && !isBlank)
            parser->wanted_ = parser->sink_({parser->rowLine_, parser->cells_});
        parser->cells_.clear();
        parser->betweenRows_ = true;
        ++parser->rowLine_; // where the lines end in carriage returns alone
    }

    csv_parser parser_{};
    const CsvForm& form_;
    const CsvSink& sink_;
    QStringList cells_;
    int line_ = 0;
    int rowLine_ = 0;
    bool betweenRows_ = true;
    bool wanted_ = true;
};

} // namespace

CsvForm ReadCsv(const QString& path, const CsvSink& sink) {
    QFile file(path);
    OpenToRead(file);
    CsvForm form;
    form.isUtf8 = IsUtf8(file);
    file.seek(0);
    if (file.peek(Utf8Mark.size()) == Utf8Mark)
        file.skip(Utf8Mark.size());
    int line = 1;
    QByteArray part = file.readLine(PartSize);
    if (part.startsWith("sep=") && part.trimmed().size() <= 5 && part.size() > 4) {
        form.separator = part[4];
        part = file.readLine(PartSize);
        ++line;
    } else {
        form.separator = SeparatorIn(part);
    }
    Parser parser(form, sink);
    for (; !part.isEmpty(); part = file.readLine(PartSize)) {
        if (!parser.Take(part, line))
            return form;
        line += part.endsWith('\n') ? 1 : 0;
    }
    if (file.error() != QFileDevice::NoError)
        throw ProgramError(ErrorKind::FileUnreadable, CsvNumber,
                           u"%1 cannot be read: %2"_s.arg(path, file.errorString()),
                           {path, file.errorString()});
    parser.Finish(path);
    return form;
}

namespace {

/// Whether single quotes, or none, stand before what begins a formula.
bool BeginsFormula(QStringView text) {
    while (text.startsWith(u'\''))
        text = text.sliced(1);
    return !text.isEmpty() && QStringView(u"=+-@\t\r").contains(text.front());
}

} // namespace

QString WithFormulaMark(const QString& text) {
    return BeginsFormula(text) ? u'\'' + text : text;
}

QString WithoutFormulaMark(const QString& text) {
    return text.startsWith(u'\'') && BeginsFormula(text) ? text.sliced(1) : text;
}
