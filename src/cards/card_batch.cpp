#include "cards/card_fields.h"
#include "cards/card_store.h"

using namespace Qt::StringLiterals;

namespace {

using Cards = QHash<QString, TimeCard>;

const QString Headers = u"TimeCardHeader"_s;
const QString Days = u"TimeCardDetail"_s;
/// How many values one statement takes.
constexpr qsizetype MostValues = 500;

/// Hands each row of these cards to the function, a card's days in their order.
template<class Row, class Each, class Take>
void ReadRows(Connection& connection, const QString& table, const QStringList& tcids, Each each, Take take) {
    for (qsizetype from = 0; from < tcids.size(); from += MostValues) {
        const QStringList some = tcids.sliced(from, qMin(MostValues, tcids.size() - from));
        Cursor rows = connection.Query(u"select * from %1 where TCID in (%2)"_s.arg(table, Marks(some.size()))
                                           + (table == Days ? u" order by TCID, Tanggal"_s : QString()),
                                       QVariantList(some.cbegin(), some.cend()));
        const int tcid = rows.ColumnOf(u"TCID"_s);
        QHash<QStringView, int> columns;
        each([&](QStringView name, auto) { columns.insert(name, rows.ColumnOf(name.toString())); });
        while (rows.Next())
            take(rows.Text(tcid),
                 RowOf<Row>(each, [&](QStringView name) { return rows.Value(columns.value(name)); }));
    }
}

Cards ReadAll(Connection& connection, const QStringList& tcids) {
    Cards cards;
    for (const QString& tcid : tcids)
        cards.insert(tcid, {});
    ReadRows<CardHeader>(connection, Headers, tcids, HeaderColumns,
                         [&](const QString& tcid, CardHeader header) { cards[tcid].header = header; });
    ReadRows<CardDay>(connection, Days, tcids, DayColumns,
                      [&](const QString& tcid, CardDay day) { cards[tcid].days.push_back(day); });
    return cards;
}

/// Null and empty texts are two contents of a field.
template<class Row, class Each>
bool RowsDiffer(const Row& a, const Row& b, Each each) {
    bool differ = false;
    each([&](QStringView, auto member) { differ = differ || Differs(a.*member, b.*member); });
    return differ;
}

/// The values of the statements that write what was altered.
struct Writes {
    QList<QVariantList> newHeaders;
    QList<QVariantList> headers;
    QList<QVariantList> newDays;
    QList<QVariantList> days;
    QList<QVariantList> withoutDays;

    void AddHeader(const QString& tcid, const std::optional<CardHeader>& read, const CardHeader& wanted) {
        const QVariantList values = ValuesOf(wanted, HeaderColumns);
        if (!read)
            newHeaders << values;
        else if (RowsDiffer(*read, wanted, HeaderColumns))
            headers << values + QVariantList{tcid};
    }
    void AddDays(const QString& tcid, const std::vector<CardDay>& read, const std::vector<CardDay>& wanted) {
        if (wanted.empty() && !read.empty())
            withoutDays << QVariantList{tcid};
        for (size_t i = 0; i < wanted.size(); ++i) {
            const QVariantList values = ValuesOf(wanted[i], DayColumns);
            if (i >= read.size())
                newDays << QVariantList{tcid} + values;
            else if (RowsDiffer(read[i], wanted[i], DayColumns))
                days << values + QVariantList{tcid, StoredDay(read[i].tanggal)};
        }
    }
};

QString UpdateStatement(const QString& table, const QStringList& columns, const QString& condition) {
    return u"UPDATE %1 SET %2=? WHERE %3"_s.arg(table, columns.join(u"=?, "_s), condition);
}

} // namespace

void CardStore::ChangeAll(const QStringList& tcids, const std::function<void(Cards&)>& change) const {
    connection_.InTransaction([&] {
        const Cards read = ReadAll(connection_, tcids);
        Cards wanted = read;
        change(wanted);
        Writes writes;
        for (auto card = read.cbegin(); card != read.cend(); ++card) {
            const TimeCard& altered = wanted[card.key()];
            if (altered.header)
                writes.AddHeader(card.key(), card->header, *altered.header);
            writes.AddDays(card.key(), card->days, altered.days);
        }
        const QStringList dayColumns = NamesOf(DayColumns);
        const std::pair<QString, const QList<QVariantList>&> statements[] = {
            {InsertStatement(Headers, NamesOf(HeaderColumns)), writes.newHeaders},
            {UpdateStatement(Headers, NamesOf(HeaderColumns), u"TCID=?"_s), writes.headers},
            {InsertStatement(Days, QStringList{u"TCID"_s} + dayColumns), writes.newDays},
            {UpdateStatement(Days, dayColumns, u"TCID=? and Tanggal=?"_s), writes.days},
            {u"DELETE FROM %1 WHERE TCID=?"_s.arg(Days), writes.withoutDays}};
        for (const auto& [statement, rows] : statements) {
            if (!rows.isEmpty())
                connection_.ExecuteMany(statement, rows);
        }
    });
}
