#include "tools/data_check.h"

#include "cards/sheet_identifier.h"
#include "core/status_codes.h"
#include "database/database_file.h"
#include "database/schema.h"

#include <QFileInfo>
#include <QMetaType>
#include <QRegularExpression>
#include <QSet>

#include <cmath>
#include <optional>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int OlderVersionNumber = 90012;

/// What a column is to hold; null is allowed everywhere.
enum class Content { Text, Number, Date, Flag };

bool IsNumber(const FieldValue& value) {
    const int type = value.Stored().typeId(); // a text may stand in a column of numbers
    return type == QMetaType::Int || type == QMetaType::LongLong
           || (type == QMetaType::Double && std::isfinite(value.Number()));
}

bool IsReadable(const FieldValue& value, Content content) {
    switch (content) {
    case Content::Number:
        return value.IsNull() || IsNumber(value);
    case Content::Date:
        return value.IsNull() || value.Time().has_value();
    case Content::Flag:
        return value.IsNull() || (IsNumber(value) && (value.Number() == 0 || value.Number() == 1));
    case Content::Text:
        break;
    }
    return true;
}

constexpr QStringView Names[] = {u"text", u"number", u"date", u"flag"}; ///< of the contents

/// Whether the card identifier is a sheet identifier followed by the employee number, in upper case.
bool IsCardOf(const QString& tcid, const QString& nip) {
    // Any digits pass for the date: the program names a sheet by the day as it was typed.
    static const QRegularExpression sheet(QRegularExpression::anchoredPattern(u"T[0-9]{8}(-.+)?"_s),
                                          QRegularExpression::DotMatchesEverythingOption);
    return tcid == CardIdentifier(tcid.chopped(qMin(tcid.size(), nip.size())), nip)
           && sheet.match(tcid.chopped(nip.size())).hasMatch();
}

constexpr qint64 RowsPerProgress = 10000;

class DataCheck {
public:
    DataCheck(Connection& connection, const std::function<void(const Finding&)>& report,
              const CheckProgress& progress)
        : connection_(connection), report_(report), progress_(progress) {}

    void Run() {
        ReadCodes();
        CheckEmployees();
        CheckPay();
        CheckUserJobs();
        CheckRoster();
        CheckSheets();
        CheckHeaders();
        CheckDayRows();
        CheckArrivalsPerDay();
    }

private:
    /// Tells a problem of the row that is being scanned.
    using Tell = std::function<void(const QString& problem)>;

    struct Table {
        QString name;
        int keyLength; ///< how many of the first columns make the key
        QString statement;
        std::vector<Content> contents; ///< by column; text after the last
    };

    /// Reads the table once: reports what cannot be read in it and hands each row on.
    void Scan(const Table& table, const std::function<void(const Cursor&, const Tell&)>& checkRow) {
        Cursor rows = connection_.Query(table.statement);
        const QStringList names = rows.ColumnNames();
        const Tell tell = [&](const QString& problem) {
            QStringList key;
            for (int i = 0; i < table.keyLength; ++i)
                key << rows.Text(i);
            report_({table.name, key.join(u' '), problem});
        };
        while (rows.Next()) {
            if (++rowsRead_ % RowsPerProgress == 0 && progress_)
                progress_(rowsRead_);
            for (size_t i = 0; i < table.contents.size(); ++i) {
                const int column = static_cast<int>(i);
                if (!IsReadable(rows.Value(column), table.contents[i]))
                    tell(u"%1 \"%2\" is no %3"_s.arg(names[column], rows.Text(column),
                                                     Names[static_cast<size_t>(table.contents[i])]));
            }
            checkRow(rows, tell);
        }
    }

    QSet<QString> ReadKeys(const Table& table) {
        QSet<QString> keys;
        Scan(table, [&](const Cursor& rows, const Tell&) { keys << rows.Text(0); });
        return keys;
    }

    void ReadCodes() {
        using enum Content;
        departments_ =
            ReadKeys({u"Departments"_s, 1, u"select DeptCode from Departments order by DeptCode"_s, {}});
        divisions_ = ReadKeys({u"Division"_s, 1, u"select DivKode from Division order by DivKode"_s, {}});
        statuses_ = ReadKeys({u"Employee Status"_s,
                              1,
                              u"select Status, ID from [Employee Status] order by Status"_s,
                              {Text, Number}});
        shifts_ = ReadKeys(
            {u"Shift"_s, 1, u"select Code, TimeIn, TimeOut from Shift order by Code"_s, {Text, Date, Date}});
        for (const QString& code : std::as_const(shifts_))
            upperCaseShifts_ << code.toUpper();
        users_ = ReadKeys({u"User"_s, 1, u"select UserID from [User] order by UserID"_s, {}});
        ReadKeys({u"AbsenTipe"_s, 1, u"select Kode from AbsenTipe order by Kode"_s, {}});
    }

    void CheckEmployees() {
        using enum Content;
        enum Column { Nip, Dept, Divisi };
        Scan({u"Employee"_s,
              1,
              u"select NIP, Dept, Divisi, GP, RateOT, TMakan, sc, Masuk, Keluar from Employee order by NIP"_s,
              {Text, Text, Text, Number, Number, Number, Number, Date, Date}},
             [&](const Cursor& rows, const Tell& tell) {
                 employees_ << rows.Text(Nip);
                 ExpectKnown(rows.Text(Dept), departments_, u"department"_s, tell);
                 ExpectKnown(rows.Text(Divisi), divisions_, u"division"_s, tell);
             });
    }

    void CheckPay() {
        using enum Content;
        Scan({u"EmployeePay"_s,
              2,
              u"select NIP, Berlaku, GP, RateOT, TMakan from EmployeePay order by NIP, Berlaku"_s,
              {Text, Date, Number, Number, Number}},
             [&](const Cursor& rows, const Tell& tell) { ExpectEmployee(rows.Text(0), tell); });
    }

    void CheckUserJobs() {
        Scan({u"User_Job"_s, 2, u"select UserID, GroupID from User_Job order by UserID, GroupID"_s, {}},
             [&](const Cursor& rows, const Tell& tell) {
                 if (!users_.contains(rows.Text(0)))
                     tell(u"no user \"%1\""_s.arg(rows.Text(0)));
             });
    }

    void CheckRoster() {
        using enum Content;
        enum Column { Nip, Tgl, ShiftCode };
        Scan({u"ShiftEmployee"_s,
              2,
              u"select NIP, Tgl, ShiftCode from ShiftEmployee order by NIP, Tgl"_s,
              {Text, Date, Text}},
             [&](const Cursor& rows, const Tell& tell) {
                 ExpectEmployee(rows.Text(Nip), tell);
                 ExpectKnown(rows.Text(ShiftCode), shifts_, u"shift code"_s, tell);
             });
    }

    void CheckSheets() {
        using enum Content;
        Scan({u"timecardmaster"_s,
              1,
              u"select TCID, Status from timecardmaster order by TCID"_s,
              {Text, Number}},
             [](const Cursor&, const Tell&) {});
    }

    /// A header without a day row is in order: deleting attendance removes the day rows only.
    void CheckHeaders() {
        using enum Content;
        enum Column { Tcid, Nip, Status };
        Scan({u"TimeCardHeader"_s,
              1,
              u"select TCID, NIP, Status, NormalHours, OTHours, NormalAmount, OTAmount, TotalUangMakan "
              "from TimeCardHeader order by TCID"_s,
              {Text, Text, Text, Number, Number, Number, Number, Number}},
             [&](const Cursor& rows, const Tell& tell) {
                 const QString nip = rows.Text(Nip);
                 ExpectEmployee(nip, tell);
                 if (!statuses_.contains(rows.Text(Status)))
                     tell(u"unknown status \"%1\""_s.arg(rows.Text(Status)));
                 if (!IsCardOf(rows.Text(Tcid), nip))
                     tell(u"the card identifier is not made of a sheet and the employee number \"%1\""_s.arg(
                         nip));
             });
    }

    void CheckDayRows() {
        using enum Content;
        enum Column {
            Tcid,
            Tanggal,
            TimeIn,
            TimeOut,
            TimeInOT,
            TimeOutOT,
            ShiftCode,
            BeriUangMakan,
            Header,
            Status
        };
        QString arrivedCard;
        Scan({u"TimeCardDetail"_s,
              2,
              u"select d.TCID, d.Tanggal, d.TimeIN, d.TimeOUT, d.TimeINOT, d.TimeOutOT, d.ShiftCode, "
              "d.BeriUangMakan, h.TCID, h.Status from TimeCardDetail d left join TimeCardHeader h on "
              "h.TCID=d.TCID "
              "order by d.TCID, d.Tanggal"_s,
              {Text, Date, Date, Date, Date, Date, Text, Flag}},
             [&](const Cursor& rows, const Tell& tell) {
                 const std::optional<WallTime> timeIn = TimeIfSet(rows.Time(TimeIn));
                 const std::optional<WallTime> timeOut = TimeIfSet(rows.Time(TimeOut));
                 if (rows.Value(Header).IsNull())
                     tell(u"no header"_s);
                 if (rows.Text(Status) == CardStatus::Out && !timeOut)
                     tell(u"status OUT without a departure"_s);
                 if (timeIn && timeOut && *timeIn > *timeOut)
                     tell(u"arrival %1 is later than departure %2"_s.arg(StoredTime(*timeIn),
                                                                         StoredTime(*timeOut)));
                 // The computation writes shift codes in upper case, however the table spells them.
                 if (!shifts_.contains(rows.Text(ShiftCode)))
                     ExpectKnown(rows.Text(ShiftCode), upperCaseShifts_, u"shift code"_s, tell);
                 if (!timeIn)
                     return;
                 if (arrivedCard == rows.Text(Tcid))
                     tell(u"the card holds an arrival on another day too"_s);
                 arrivedCard = rows.Text(Tcid);
             });
    }

    /// An employee arrives once a day. More arrivals are in order when all stand on that day's sheets, which
    /// their extensions tell apart.
    void CheckArrivalsPerDay() {
        enum Column { Tcid, Tanggal, Nip, FirstTcid, Count };
        Scan({u"TimeCardDetail"_s,
              2,
              u"select max(d.TCID), d.Tanggal, h.NIP, min(d.TCID), count(*) from TimeCardDetail d "
              "inner join TimeCardHeader h on h.TCID=d.TCID where d.TimeIN<>"_s
                  + u'\'' + StoredTime(EmptyTime) + u'\'' + u" group by h.NIP, d.Tanggal having count(*)>1"_s,
              {}},
             [&](const Cursor& rows, const Tell& tell) {
                 const QString last = rows.Text(Tcid);
                 const QString first = rows.Text(FirstTcid);
                 const std::optional<WallTime> day = rows.Time(Tanggal);
                 // What stands between the first and the last identifier begins as both do.
                 const QString sheet = day ? SheetIdentifierOf(DayOf(*day)) : QString();
                 if (day && first.startsWith(sheet) && last.startsWith(sheet))
                     return;
                 tell(u"%1 arrivals of employee \"%2\" on one day, the first on %3"_s.arg(
                     rows.Text(Count), rows.Text(Nip), first));
             });
    }

    void ExpectEmployee(const QString& nip, const Tell& tell) {
        if (!employees_.contains(nip))
            tell(u"no employee \"%1\""_s.arg(nip));
    }

    /// An empty code stands for none and is in order.
    static void ExpectKnown(const QString& code, const QSet<QString>& known, const QString& kind,
                            const Tell& tell) {
        if (!code.isEmpty() && !known.contains(code))
            tell(u"unknown %1 \"%2\""_s.arg(kind, code));
    }

    Connection& connection_;
    const std::function<void(const Finding&)>& report_;
    const CheckProgress& progress_;
    qint64 rowsRead_ = 0;
    QSet<QString> departments_;
    QSet<QString> divisions_;
    QSet<QString> statuses_;
    QSet<QString> shifts_;
    QSet<QString> upperCaseShifts_;
    QSet<QString> users_;
    QSet<QString> employees_;
};

} // namespace

QString Finding::Line() const {
    QString line = u"%1 %2: %3"_s.arg(table, key, problem);
    for (QChar& c : line) {
        if (c.category() == QChar::Other_Control)
            c = u'?';
    }
    return line;
}

std::unique_ptr<Connection> OpenUnchanged(const QString& path) {
    std::unique_ptr<Connection> connection = ConnectToFile(path);
    const int version = SchemaVersion(*connection);
    const int newest = NewestSchemaVersion(*connection);
    if (version < newest)
        throw DatabaseError(ErrorKind::Told, OlderVersionNumber,
                            u"the database is of the older version %1; start the program on it once, which "
                            "converts it to version %2"_s.arg(version)
                                .arg(newest));
    PrepareSchema(*connection);
    return connection;
}

void CheckData(Connection& connection, const std::function<void(const Finding&)>& report,
               const CheckProgress& progress) {
    DataCheck(connection, report, progress).Run();
}
