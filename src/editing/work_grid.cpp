#include "editing/work_grid.h"

#include "cards/sheet_identifier.h"
#include "editing/search_row.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int KeyWidth = 8;
constexpr int NameWidth = 20;
constexpr int LeastDayWidth = 3;

/// The day that a card stands for; the one it was filed under when its identifier names none.
std::optional<Day> SheetDayOf(const FoundDay& row) {
    const std::optional<Day> day = DayOfIdentifier(row.header.tcid);
    return day || !row.day ? day : std::optional(row.day->tanggal);
}

int DayOfMonth(Day day) {
    return static_cast<int>(static_cast<unsigned>(std::chrono::year_month_day{day}.day()));
}

/// "Mar-2006"
QString ShownMonth(Day day) {
    return ShownDay(day).sliced(3);
}

/// Hands out each card once, with its day, also when it has several rows: they stand together, and the status
/// is the card's. False when it was stopped.
bool ForEachCard(const FoundRows& rows, const std::function<void(const FoundDay& row, Day day)>& take) {
    QString last;
    return rows([&](const FoundDay& row) {
        if (row.header.tcid == last)
            return;
        last = row.header.tcid;
        if (const auto day = SheetDayOf(row))
            take(row, *day);
    });
}

/// The tables one after the other, an empty line between them; false when it was stopped.
template<class Pages, class Write>
bool WritePages(const Pages& pages, const LineSink& sink, const Progress& progress, Write write) {
    const auto count = static_cast<qsizetype>(pages.size());
    qsizetype done = 0;
    for (const auto& [key, page] : pages) {
        if (progress && !progress(done, count))
            return false;
        if (done++ > 0)
            sink(QString());
        write(key, page);
    }
    return true;
}

} // namespace

WorkGrid::WorkGrid(const QString& keyHeading, const QString& nameHeading, NumberedTexts& texts)
    : keyHeading_(keyHeading), nameHeading_(nameHeading), texts_(texts) {}

void WorkGrid::PlaceInWorkGrid(const QString& key, const QString& name, int day, const QString& value) {
    const quint32 keyNumber = texts_.NumberOf(key);
    auto place = rowOfKey_.constFind(keyNumber);
    if (place == rowOfKey_.cend()) {
        place = rowOfKey_.insert(keyNumber, rows_.size());
        rows_.push_back({keyNumber, texts_.NumberOf(name)});
    }
    quint32& cell = rows_[*place].days[static_cast<size_t>(day - 1)];
    const QString present = texts_.Text(cell);
    cell = texts_.NumberOf(present.isEmpty() ? value : present + u'/' + value);
}

/// No code and no number is cut: a cut one might be taken for another.
modGeneral::ColumnWidths WorkGrid::Widths(const QString& serialHeading) const {
    const auto lengthOf = [this](quint32 text) { return modGeneral::CharactersIn(texts_.Text(text)); };
    int keyWidth = KeyWidth;
    int dayWidth = LeastDayWidth;
    for (const Row& row : rows_) {
        keyWidth = qMax(keyWidth, lengthOf(row.key));
        for (const quint32 status : row.days)
            dayWidth = qMax(dayWidth, lengthOf(status));
    }
    const auto serialWidth = qMax(serialHeading.size(), QString::number(rows_.size()).size());
    modGeneral::ColumnWidths widths{static_cast<int>(serialWidth), keyWidth, NameWidth};
    widths.resize(widths.size() + DaysOfAMonth, dayWidth);
    return widths;
}

void WorkGrid::Print(const QStringList& pageHeading, const LineSink& sink) const {
    QStringList titles{keyHeading_, nameHeading_};
    for (int day = 1; day <= DaysOfAMonth; ++day)
        titles << QString::number(day);
    titles = modGeneral::SetupGrid(titles);
    const auto rows = [this](const modGeneral::RowSink& take) {
        for (size_t i = 0; i < rows_.size(); ++i) {
            QStringList cells{QString::number(i + 1), texts_.Text(rows_[i].key), texts_.Text(rows_[i].name)};
            for (const quint32 status : rows_[i].days)
                cells << texts_.Text(status);
            take(cells);
        }
        return true;
    };
    modGeneral::GridToTextTable(titles, rows, Widths(titles[0]), pageHeading, sink);
}

bool GridPrint(const FoundRows& rows, const LineSink& sink) {
    QStringList titles;
    for (int column = 0; column < SearchRow::ColumnCount; ++column)
        titles << SearchColumnName(column);
    const auto numbered = [&rows](const modGeneral::RowSink& take) {
        qsizetype number = 0;
        return rows([&](const FoundDay& row) {
            take(QStringList{QString::number(++number)} + SearchRowElements(row, NextDay::Dated));
        });
    };
    return modGeneral::GridToTextTableAll(titles, numbered, sink);
}

bool SheetPrint(const FoundRows& rows, const QString& printedAt, const LineSink& sink,
                const Progress& progress) {
    NumberedTexts texts;
    std::map<QString, WorkGrid> sheets;
    const auto place = [&](const FoundDay& row, Day day) {
        WorkGrid& grid = sheets.try_emplace(MonthPartOf(day), u"NIK"_s, u"Nama"_s, texts).first->second;
        grid.PlaceInWorkGrid(row.header.nip, row.nama, DayOfMonth(day), row.header.status);
    };
    return ForEachCard(rows, place)
           && WritePages(sheets, sink, progress, [&](const QString& sheet, const WorkGrid& grid) {
                  grid.Print({u"DATA ABSENSI PER LEMBAR"_s, u"Lembar: "_s + sheet, printedAt}, sink);
              });
}

bool EmployeePrint(const FoundRows& rows, const QString& printedAt, const LineSink& sink,
                   const Progress& progress) {
    struct Page {
        QString nama;
        WorkGrid grid;
    };
    NumberedTexts texts;
    std::map<QString, Page> employees;
    const auto place = [&](const FoundDay& row, Day day) {
        Page& page =
            employees.try_emplace(row.header.nip, QString(), WorkGrid(u"Lembar"_s, u"Bulan"_s, texts))
                .first->second;
        page.nama = row.nama;
        page.grid.PlaceInWorkGrid(MonthPartOf(day), ShownMonth(day), DayOfMonth(day), row.header.status);
    };
    return ForEachCard(rows, place)
           && WritePages(employees, sink, progress, [&](const QString& nip, const Page& page) {
                  const QString employee = u"NIK: %1  %2"_s.arg(nip, page.nama);
                  page.grid.Print({u"DATA ABSENSI PER KARYAWAN"_s, modGeneral::OneLine(employee), printedAt},
                                  sink);
              });
}
