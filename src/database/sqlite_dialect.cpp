#include "database/sqlite_dialect.h"

#include "database/database_error.h"
#include "database/statement.h"
#include "database/wall_time.h"

#include <span>

using namespace Qt::StringLiterals;
using Kind = StatementToken::Kind;

namespace {

struct SavedQuery {
    QStringView name;
    QStringView beforeArgument;
};

/// Called as: name 'argument'. They answer whoever asks for them by name; the program's own windows read
/// whole cards.
constexpr SavedQuery SavedQueries[] = {
    {u"sp_TimeCardDetail",
     u"SELECT Tanggal, TimeIN, TimeOUT, TimeINOT, TimeOutOT, ShiftCode, BeriUangMakan FROM TimeCardDetail "
     "WHERE TCID="},
    {u"sp_sel_TimeCard",
     u"SELECT Status, NormalAmount, OTAmount, Keterangan, NormalHours, OTHours, NIP, TotalUangMakan "
     "FROM TimeCardHeader WHERE TCID="},
};

using Tokens = std::span<const StatementToken>;

Tokens Trimmed(Tokens tokens) {
    while (!tokens.empty() && tokens.front().kind == Kind::Space)
        tokens = tokens.subspan(1);
    while (!tokens.empty() && tokens.back().kind == Kind::Space)
        tokens = tokens.first(tokens.size() - 1);
    return tokens;
}

/// SQLite takes a double-quoted name that it does not know for a text; a bracketed one never.
QString BracketedName(const QString& name) {
    if (name.contains(u']'))
        throw StatementError(ErrorKind::BracketInName, u"the name %1 holds a ]"_s.arg(name));
    return u'[' + name + u']';
}

QString DateTextLiteral(const QString& text) {
    const std::optional<DateText> date = ReadDateText(text);
    if (!date)
        throw StatementError(ErrorKind::NotADate, u"\"%1\" is no date"_s.arg(text), {text});
    return Quoted(date->hasTime ? StoredTime(date->time) : StoredDay(DayOf(date->time)));
}

QString Translated(Tokens tokens);

/// A call of one of the dialect's functions that SQLite lacks: its name and its arguments.
class Call {
public:
    /// Reads a call at the start of the tokens; Length() is 0 when none stands there.
    explicit Call(Tokens tokens) {
        size_t open = 1;
        while (open < tokens.size() && tokens[open].kind == Kind::Space)
            ++open;
        if (tokens.front().kind != Kind::Word || open >= tokens.size() || !tokens[open].Is(u"("))
            return;
        size_t start = open + 1;
        int depth = 0;
        for (size_t i = start; i < tokens.size(); ++i) {
            if (tokens[i].Is(u"(")) {
                ++depth;
            } else if (depth > 0 && tokens[i].Is(u")")) {
                --depth;
            } else if (depth == 0 && (tokens[i].Is(u",") || tokens[i].Is(u")"))) {
                arguments_.push_back(Trimmed(tokens.subspan(start, i - start)));
                start = i + 1;
                if (tokens[i].Is(u")")) {
                    name_ = tokens.front();
                    length_ = i + 1;
                    return;
                }
            }
        }
    }

    size_t Length() const { return length_; }

    /// Empty when the function needs no translation.
    QString Translation() const {
        if (Is(u"Left", 2))
            return u"substr(%1,1,%2)"_s.arg(Translated(arguments_[0]), Translated(arguments_[1]));
        if (Is(u"Mid", 3))
            return u"substr(%1,%2,%3)"_s.arg(Translated(arguments_[0]), Translated(arguments_[1]),
                                             Translated(arguments_[2]));
        if (Is(u"year", 1))
            return u"CAST(substr(%1,1,4) AS INTEGER)"_s.arg(Translated(arguments_[0]));
        if (Is(u"Month", 1))
            return u"CAST(substr(%1,6,2) AS INTEGER)"_s.arg(Translated(arguments_[0]));
        if (Is(u"Same", 2))
            return u"%1 IS %2"_s.arg(Translated(arguments_[0]), Translated(arguments_[1]));
        if (Is(u"CDATE", 1)) {
            // A stored date is its own date value; only a typed text has to be read.
            const Tokens value = arguments_[0];
            return value.size() == 1 && value.front().kind == Kind::Text ? DateTextLiteral(value.front().text)
                                                                         : Translated(value);
        }
        return {};
    }

private:
    bool Is(QStringView name, size_t argumentCount) const {
        return length_ > 0 && name_.IsWord(name) && arguments_.size() == argumentCount;
    }

    StatementToken name_{};
    std::vector<Tokens> arguments_;
    size_t length_ = 0;
};

QString Translated(const StatementToken& token) {
    switch (token.kind) {
    case Kind::Name:
        return BracketedName(token.text);
    case Kind::Text:
        return Quoted(token.text);
    case Kind::Date:
        return DateTextLiteral(token.text);
    case Kind::Word:
    case Kind::Number:
    case Kind::Symbol:
    case Kind::Space:
        break;
    }
    return token.text;
}

QString Translated(Tokens tokens) {
    QString sql;
    while (!tokens.empty()) {
        const Call call(tokens);
        const QString translation = call.Translation();
        if (translation.isEmpty()) {
            sql += Translated(tokens.front());
            tokens = tokens.subspan(1);
        } else {
            sql += translation;
            tokens = tokens.subspan(call.Length());
        }
    }
    return sql;
}

QString SavedQueryCall(Tokens tokens) {
    if (!tokens.empty() && (tokens.front().IsWord(u"EXEC") || tokens.front().IsWord(u"EXECUTE")))
        tokens = Trimmed(tokens.subspan(1));
    if (tokens.empty() || (tokens.front().kind != Kind::Word && tokens.front().kind != Kind::Name))
        return {};
    for (const SavedQuery& query : SavedQueries) {
        if (tokens.front().text.compare(query.name, Qt::CaseInsensitive) != 0)
            continue;
        const Tokens argument = Trimmed(tokens.subspan(1));
        if (argument.size() != 1 || argument.front().kind != Kind::Text)
            throw StatementError(ErrorKind::OneTextNeeded, u"%1 takes one text"_s.arg(query.name),
                                 {query.name.toString()});
        return query.beforeArgument.toString() + Quoted(argument.front().text);
    }
    return {};
}

} // namespace

QString ToSqlite(const QString& statement) {
    const std::vector<StatementToken> tokens = Tokenize(statement);
    const QString savedQuery = SavedQueryCall(Trimmed(tokens));
    return savedQuery.isEmpty() ? Translated(tokens) : savedQuery;
}
