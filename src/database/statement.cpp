#include "database/statement.h"

#include "database/database_error.h"

using namespace Qt::StringLiterals;
using Kind = StatementToken::Kind;

namespace {

bool StartsWord(QChar c) {
    return c.isLetter() || c == u'_';
}

bool ContinuesWord(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'$';
}

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

class Reader {
public:
    explicit Reader(QStringView statement) : statement_(statement) {}

    bool AtEnd() const { return at_ >= statement_.size(); }

    StatementToken Next() {
        const QChar first = statement_[at_];
        switch (first.unicode()) {
        case u'\'': {
            const StatementToken text{Kind::Text, Enclosed(u'\'', ErrorKind::TextNotClosed)};
            if (!AtEnd() && statement_[at_] == u'\'')
                throw StatementError(ErrorKind::QuoteInText, u"a text holds a quote (')"_s);
            return text;
        }
        case u'#':
            return {Kind::Date, Enclosed(u'#', ErrorKind::DateNotClosed)};
        case u'[':
            return {Kind::Name, Enclosed(u']', ErrorKind::BracketNotClosed)};
        case u'`':
        case u'"':
            return {Kind::Name, Enclosed(first, ErrorKind::NameNotClosed)};
        default:
            break;
        }
        if (first.isSpace())
            return {Kind::Space, While([](QChar c) { return c.isSpace(); })};
        if (StartsWord(first))
            return {Kind::Word, While(ContinuesWord)};
        if (IsDigit(first) || (first == u'.' && IsDigit(Peek(1))))
            return {Kind::Number, While([](QChar c) { return ContinuesWord(c) || c == u'.'; })};
        return {Kind::Symbol, Symbol()};
    }

private:
    QChar Peek(qsizetype ahead) const {
        return at_ + ahead < statement_.size() ? statement_[at_ + ahead] : QChar();
    }

    QString Enclosed(QChar close, ErrorKind whenOpen) {
        const qsizetype end = statement_.indexOf(close, at_ + 1);
        if (end < 0)
            throw StatementError(whenOpen, u"%1 is not closed in the statement"_s.arg(close));
        QString inside = statement_.sliced(at_ + 1, end - at_ - 1).toString();
        at_ = end + 1;
        return inside;
    }

    template<class Predicate>
    QString While(Predicate belongs) {
        const qsizetype start = at_;
        while (!AtEnd() && belongs(statement_[at_]))
            ++at_;
        return statement_.sliced(start, at_ - start).toString();
    }

    QString Symbol() {
        const QChar first = statement_[at_];
        const QChar second = Peek(1);
        if (first == u';')
            throw StatementError(ErrorKind::SecondStatement, u"more than one statement"_s);
        if ((first == u'-' && second == u'-') || (first == u'/' && second == u'*'))
            throw StatementError(ErrorKind::Comment, u"a comment in the statement"_s);
        static const QStringList pairs{u"<="_s, u">="_s, u"<>"_s, u"!="_s, u"||"_s};
        const QString pair = QString(first) + second;
        at_ += pairs.contains(pair) ? 2 : 1;
        return pairs.contains(pair) ? pair : QString(first);
    }

    QStringView statement_;
    qsizetype at_ = 0;
};

} // namespace

QString Quoted(const QString& value) {
    if (value.contains(u'\'') || value.contains(QChar(u'\0')))
        throw StatementError(ErrorKind::QuoteInValue, u"a value holds a quote (')"_s);
    return u'\'' + value + u'\'';
}

std::vector<StatementToken> Tokenize(QStringView statement) {
    std::vector<StatementToken> tokens;
    Reader reader(statement);
    while (!reader.AtEnd())
        tokens.push_back(reader.Next());
    return tokens;
}
