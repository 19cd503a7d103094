#pragma once

#include "shifts/frmShiftEmployee.h"
#include "support/window_company.h"
#include "ui/data_grid.h"

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;

inline constexpr int Days = RosterModel::FirstDay - 1; ///< added to a day of the month it gives the column

/// The window over November 2026 and three employees, worked at by keyboard while it is open.
class Roster : public WindowFixture {
public:
    Roster() {
        AddEmployee(u"0012"_s, u"Siti Aminah"_s, u"x"_s);
        AddEmployee(u"0013"_s, u"Budi Santoso"_s, u"x"_s);
        AddEmployee(u"O'1"_s, u"Agus Salim"_s, u"x"_s);
        Run(u"INSERT INTO Shift VALUES ('P','1899-12-30 08:00:00','1899-12-30 17:00:00'),"
            "('MALAM','1899-12-30 22:00:00','1899-12-31 06:00:00')"_s);
        Run(u"INSERT INTO ShiftEmployee VALUES ('0012','2026-11-01','P'),('0013','2026-11-30','MALAM'),"
            "('0012','2026-10-31','P'),('0012','2025-11-02','P'),('9999','2026-11-01','P')"_s);
    }

    void Open(const std::function<void(QWidget&)>& work) {
        frmShiftEmployee roster(program, skin, nullptr);
        WindowFixture::Open(
            roster,
            [&](QWidget& window) {
                const QAbstractItemModelTester tester(Grid().model(),
                                                      QAbstractItemModelTester::FailureReportingMode::Fatal);
                work(window);
            },
            [](QWidget& window) { window.close(); });
    }
    DataGrid& Grid() { return Part<DataGrid>("MSHFlexGrid1"); }
    QModelIndex Cell(int row, int day) { return At(row, day + Days); }
    /// The days of a row that hold a code, as "day code".
    QString Codes(int row) {
        QStringList codes;
        for (int day = 1; day <= 31; ++day) {
            if (const QString code = Cell(row, day).data().toString(); !code.isEmpty())
                codes << QString::number(day) + u' ' + code;
        }
        return codes.join(u", "_s);
    }
    CellLook Look(int row, int day) {
        return static_cast<CellLook>(Cell(row, day).data(CellLookRole).toInt());
    }
    /// What is stored of November 2026 for one employee, as "day code".
    QString Stored(const QString& nip) {
        return RowsOf(
                   u"select Mid(Tgl,9,2)||' '||ShiftCode from ShiftEmployee where Tgl between #2026-11-01# "
                   "and #2026-11-30# and NIP="_s
                   + u"'%1' order by Tgl"_s.arg(nip))
            .join(u", "_s);
    }
    void SetPeriod(const QString& period) {
        Keys(u"⎇p");
        auto& txtPeriode = Part<QLineEdit>("txtPeriode");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return txtPeriode.hasFocus(); }));
        txtPeriode.selectAll();
        Keys(period + u'⏎');
    }
};
