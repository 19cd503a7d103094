#include "cards/card_search.h"

#include "cards/card_fields.h"
#include "cards/card_store.h"
#include "cards/listed_employees.h"
#include "core/query_values.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int Growth = 4;
constexpr int LargestPage = 20'000;
constexpr int CardsOfPage = 5'000;

/// Reads rows of one statement: where each column stands is looked up once.
class FoundDays {
public:
    explicit FoundDays(const Cursor& rows)
        : rows_(rows), header_(ColumnsOf(HeaderColumns)), day_(ColumnsOf(DayColumns)),
          nama_(rows.ColumnOf(u"Nama"_s)), dept_(rows.ColumnOf(u"Dept"_s)),
          divisi_(rows.ColumnOf(u"Divisi"_s)) {}

    FoundDay Current() const {
        return {RowAt<CardHeader>(HeaderColumns, header_), RowAt<CardDay>(DayColumns, day_),
                rows_.Text(nama_), rows_.Text(dept_), rows_.Text(divisi_)};
    }

private:
    template<class Each>
    std::vector<int> ColumnsOf(Each each) const {
        std::vector<int> columns;
        each([&](QStringView name, auto) { columns.push_back(rows_.ColumnOf(name.toString())); });
        return columns;
    }

    template<class Row, class Each>
    Row RowAt(Each each, const std::vector<int>& columns) const {
        auto column = columns.cbegin();
        return RowOf<Row>(each, [&](QStringView) {
            const int at = *column++;
            return at < 0 ? FieldValue() : rows_.Value(at);
        });
    }

    const Cursor& rows_;
    std::vector<int> header_;
    std::vector<int> day_;
    int nama_;
    int dept_;
    int divisi_;
};

/// The first text after all those that begin with the prefix; null where that is not certain.
QString After(const QString& prefix) {
    const char16_t last = prefix.isEmpty() ? u'\0' : prefix.back().unicode();
    return last > u' ' && last < u'~' ? prefix.chopped(1) + QChar(last + 1) : QString();
}

/// The clause of the pages that follow a card. An engine that seeks what "like" finds begins at the first
/// card of the prefix, for every page anew: there the comparison is hidden from it, and the prefix's end told
/// apart.
QString ClauseAfter(const QString& card, const QString& clause, QVariantList& values) {
    static const QRegularExpression prefixed(u"(TCID like '([^'%_]*)[^']*')"_s);
    QString further = (clause.isEmpty() ? u" Where "_s : clause + u" and "_s) + u"TCID>?"_s;
    values << card;
    const QRegularExpressionMatch match = prefixed.match(further);
    if (!match.hasMatch())
        return further;
    further.replace(match.capturedStart(1), match.capturedLength(1),
                    u"Not (Not (%1))"_s.arg(match.captured(1)));
    if (const QString end = After(match.captured(2)); !end.isNull()) {
        further += u" and TCID<?"_s;
        values << end;
    }
    return further;
}

} // namespace

/// The order of the cards costs nothing, since it is that of their key; asking for the days' order as well
/// would make the engine read and sort the whole result for every page.
Cursor CardSearch::Query(Connection& connection, const QString& columns, int limit) const {
    QVariantList values;
    const QString clause = lastCard_.isNull() ? clause_ : ClauseAfter(lastCard_, clause_, values);
    return connection.Query(u"Select %1 from qry_TimeCardAll  %2 ORDER BY TCID LIMIT %3"_s.arg(
                                columns, clause, QString::number(limit)),
                            values);
}

std::vector<FoundDay> CardSearch::Read(Connection& connection, int limit) {
    Cursor rows = Query(connection, u"*"_s, limit);
    const FoundDays found(rows);
    return rows.All([&found](const Cursor&) { return found.Current(); });
}

std::vector<FoundDay> CardSearch::Next(Connection& connection) {
    std::vector<FoundDay> page;
    for (int limit = pageSize_;; limit *= 2) {
        page = Read(connection, limit);
        if (page.size() < static_cast<size_t>(limit)) {
            atEnd_ = true;
            return page;
        }
        // The last card may have more days after the page's end: it is read again with the next page.
        const QString cut = page.back().header.tcid;
        while (!page.empty() && page.back().header.tcid == cut)
            page.pop_back();
        if (!page.empty())
            break;
    }
    lastCard_ = page.back().header.tcid;
    pageSize_ = qMin(pageSize_ * Growth, LargestPage);
    return page;
}

QStringList CardSearch::NextCards(Connection& connection) {
    Cursor rows = Query(connection, u"Distinct TCID"_s, CardsOfPage);
    QStringList cards;
    while (rows.Next())
        cards << rows.Text(0);
    atEnd_ = cards.size() < CardsOfPage;
    if (!cards.isEmpty())
        lastCard_ = cards.back();
    return cards;
}

bool WholeResult::operator()(const std::function<void(const FoundDay&)>& take) {
    CardSearch pages(clause_);
    qsizetype done = 0;
    while (!pages.AtEnd()) {
        for (const FoundDay& row : pages.Next(connection_)) {
            if (!ShouldContinue(progress_, done, total_))
                return false;
            take(row);
            ++done;
        }
    }
    total_ = done;
    return true;
}

qsizetype CountCards(Connection& connection, const QString& whereClause) {
    return b_stored_procedure::GetFirstValue(
               connection, u"Select Count(*) from (Select Distinct TCID from qry_TimeCardAll  "_s
                               + whereClause + u") AS Cards"_s)
        .toLongLong();
}

modAbsen::ComputationReport CalculateFoundCards(Connection& connection, const QString& whereClause,
                                                qsizetype cards, const Progress& progress) {
    CardSearch pages(whereClause);
    modAbsen::ComputationReport all;
    qsizetype before = 0;
    while (!all.cancelled && !pages.AtEnd()) {
        const QStringList page = pages.NextCards(connection);
        bool goOn = true;
        auto report = modAbsen::CalculateTimeCards(connection, page, [&](qsizetype done, qsizetype) {
            goOn = progress(before + done, qMax(cards, before + done));
            return goOn;
        });
        before += page.size();
        all.computed += report.computed;
        std::ranges::move(report.notComputed, std::back_inserter(all.notComputed));
        std::ranges::move(report.unknownShifts, std::back_inserter(all.unknownShifts));
        all.cancelled = report.cancelled || (!goOn && !pages.AtEnd());
    }
    return all;
}

FoundDay AsFound(const TimeCard& card, const std::optional<CardDay>& day) {
    FoundDay found{card.header.value_or(CardHeader()), {}, {}, {}, {}};
    found.header.totalUangMakan.reset();
    const CardDay* stored =
        day ? card.DayOn(day->tanggal) : (card.days.empty() ? nullptr : &card.days.front());
    if (stored) {
        found.day = *stored;
        found.day->shiftCode.clear();
    }
    return found;
}

std::optional<FoundDay> FindAgain(Connection& connection, const FoundDay& row) {
    const TimeCard card = CardStore(connection).Read(row.header.tcid);
    if (!card.header)
        return std::nullopt;
    FoundDay found = AsFound(card, row.day);
    if (!found.day)
        found = AsFound(card, {});
    const auto employees = ReadListedEmployees(connection, {.nip = found.header.nip}, {});
    if (!employees.empty()) {
        const ListedEmployee& employee = employees.front();
        std::tie(found.nama, found.dept, found.divisi) =
            std::tie(employee.nama, employee.dept, employee.divisi);
    }
    return found;
}
