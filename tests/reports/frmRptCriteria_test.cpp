#include "reports/frmRptCriteria.h"

#include "reports/report_file.h"
#include "support/window_company.h"

#include <QApplication>
#include <QComboBox>

using namespace Qt::StringLiterals;

namespace {

/// The window over a company of two employees and a card, worked at by keyboard while it is open.
class Criteria : public WindowFixture {
public:
    Criteria() {
        AddEmployee(u"0012"_s, u"Siti Aminah"_s, u"x"_s, u"P1"_s, u"A"_s);
        AddEmployee(u"0013"_s, u"Agus Salim"_s, u"x"_s, u"G1"_s, u"B"_s);
        Run(u"INSERT INTO Departments (DeptCode, DeptName) VALUES ('P1','Produksi'),('G1','Gudang')"_s);
        Run(u"INSERT INTO Division VALUES ('A','Satu'),('B','Dua')"_s);
        Run(u"INSERT INTO [Employee Status] VALUES (1,'I','Izin')"_s);
        AddCard(u"T202611220012"_s, u"0012"_s, u"I"_s, u"2026-11-22"_s);
    }

    /// Opens the window for a report and does the work in it. What is left open is closed.
    void Open(const QString& report, const std::function<void(QWidget&)>& work) {
        frmRptCriteria window(program, report, skin, nullptr);
        WindowFixture::Open(window, work);
    }

    /// Presses OK and waits until the report is shown.
    void PressOk() {
        const qsizetype before = shownReports.size() + dialogs.texts.size();
        Keys(u"⎇o");
        EXPECT_TRUE(
            KeyboardUser::WaitUntil([&] { return shownReports.size() + dialogs.texts.size() > before; }));
    }
};

} // namespace

TEST(frmRptCriteria, EnablesWhatTheReportTakesAndEnterWalksThroughIt) {
    struct Case {
        QString report;
        QString firstDay;
        QStringList walk;
    };
    const Case cases[] = {
        {u"AbsensiHarian"_s, u"22-Nov-2026"_s, {u"txtDate1"_s, u"txtSort"_s}},
        {u"AbsensiDetailKaryawan"_s, u"01-Nov-2026"_s, {u"txtDate1"_s, u"txtDate2"_s, u"txtEmpl"_s}},
        {u"AbsensiDivisi"_s, u"01-Nov-2026"_s, {u"txtDate1"_s, u"txtDate2"_s, u"txtDept"_s, u"txtDivisi"_s}},
        {u"AbsensiSumKary"_s, u"01-Nov-2026"_s, {u"txtDate1"_s, u"txtDate2"_s, u"txtDept"_s, u"txtDivisi"_s}},
    };
    for (const Case& c : cases) {
        Criteria criteria;
        criteria.Open(c.report, [&](QWidget& window) {
            EXPECT_EQ(TextOf(window, "txtDate1"), c.firstDay);
            EXPECT_EQ(TextOf(window, "txtDate2"), u"22-Nov-2026"_s);
            QStringList walk;
            while (window.focusWidget()->objectName() != u"cmdOk"_s && walk.size() < 9) {
                walk << window.focusWidget()->objectName();
                Keys(u"⏎");
            }
            EXPECT_EQ(walk, c.walk);
            EXPECT_TRUE(criteria.shownReports.isEmpty());
            Keys(u"⏎");
            EXPECT_EQ(criteria.shownReports, QStringList{ReportFilePath(criteria.program.folder)});
            EXPECT_TRUE(TextOf(window, "lblDone").contains(u" 2 "_s));
        });
    }
}

TEST(frmRptCriteria, MakesFurtherReportsWithChangedCriteria) {
    Criteria criteria;
    criteria.Open(u"AbsensiSumKary"_s, [&](QWidget& window) {
        const auto& dept = Part<QComboBox>(window, "txtDept");
        const auto& division = Part<QComboBox>(window, "txtDivisi");
        EXPECT_EQ(dept.itemText(1) + dept.itemText(2), u"GudangProduksi"_s);
        EXPECT_EQ(division.currentText(), u"<ALL>"_s);
        criteria.PressOk();
        EXPECT_EQ(criteria.ReportLines().filter(u"|0012"_s).size(), 1);
        EXPECT_EQ(criteria.ReportLines().value(2), QString());
        Part<QWidget>(window, "txtDept").setFocus();
        Keys(u"P");
        criteria.PressOk();
        EXPECT_EQ(criteria.ReportLines().value(2), u"DEPT  : PRODUKSI"_s);
        EXPECT_EQ(criteria.ReportLines().filter(u"|00"_s),
                  QStringList{u"|1   |0012    |Siti Aminah         |1     |"_s});
        Part<QWidget>(window, "txtDivisi").setFocus();
        Keys(u"D");
        criteria.PressOk();
        EXPECT_EQ(criteria.ReportLines().value(3), u"DIVISI: DUA"_s);
        EXPECT_EQ(criteria.ReportLines().filter(u"|00"_s), QStringList());
        EXPECT_EQ(TextOf(window, "lblDone"), u"Tidak ada data untuk kriteria ini."_s);
    });
    EXPECT_EQ(criteria.shownReports.size(), 3);
}

TEST(frmRptCriteria, SortsTheDailyReportByTheChosenOrder) {
    Criteria criteria;
    criteria.Open(u"AbsensiHarian"_s, [&](QWidget& window) {
        auto& sort = Part<QComboBox>(window, "txtSort");
        EXPECT_EQ(sort.currentText(), u"Nama"_s);
        Keys(u"⑨");
        EXPECT_FALSE(QApplication::activePopupWidget()) << "no employee is asked for";
        Keys(u"23↹");
        EXPECT_EQ(TextOf(window, "lblDateHint"), QString()) << "there is no second day";
        for (const auto& [key, first] : {std::pair{u"Na"_s, u"0013"_s}, std::pair{u"NI"_s, u"0012"_s},
                                         std::pair{u"De"_s, u"0013"_s}, std::pair{u"Di"_s, u"0012"_s}}) {
            sort.setFocus();
            sort.setCurrentIndex(sort.findText(key, Qt::MatchStartsWith));
            criteria.PressOk();
            EXPECT_EQ(criteria.ReportLines().value(6).mid(6, 4), first) << key.toStdString();
        }
    });
}

TEST(frmRptCriteria, TakesAnEmployeeFromTheListOrAsTyped) {
    Criteria criteria;
    criteria.Open(u"AbsensiDetailKaryawan"_s, [&](QWidget& window) {
        auto& employee = Part<QLineEdit>(window, "txtEmpl");
        EXPECT_EQ(employee.text(), u"<ALL>"_s);
        employee.setFocus();
        criteria.user.WhenIn(u"PickList"_s, [](QWidget&) { Keys(u"agus⏎"); });
        Keys(u"⑨");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return employee.text() == u"0013"_s; }));
        EXPECT_EQ(TextOf(window, "lblEmplName"), u"Agus Salim"_s);
        const std::tuple<QString, QString, QStringList> cases[] = {
            {u" 0012 "_s, u"Siti Aminah"_s, {u"NIP : 0012"_s}},
            {u"0099"_s, u"NIK ini tidak terdaftar."_s, {}},
            {u" "_s, QString(), {u"NIP : 0012"_s, u"NIP : 0013"_s}},
            {u"<all>"_s, QString(), {u"NIP : 0012"_s, u"NIP : 0013"_s}},
        };
        for (const auto& [typed, name, employees] : cases) {
            employee.setFocus();
            employee.selectAll();
            Keys(typed);
            criteria.PressOk();
            EXPECT_EQ(TextOf(window, "lblEmplName"), name);
            EXPECT_EQ(criteria.ReportLines().filter(u"NIP : "_s), employees) << typed.toStdString();
        }
    });
}

TEST(frmRptCriteria, TypedDatesAreTakenAndAReversedPeriodIsHintedAt) {
    Criteria criteria;
    criteria.Open(u"AbsensiDivisi"_s, [&](QWidget& window) {
        EXPECT_TRUE(Part<QWidget>(window, "txtDate1").hasFocus());
        Keys(u"23↹");
        EXPECT_NE(TextOf(window, "lblDateHint"), QString());
        criteria.PressOk();
        EXPECT_EQ(criteria.ReportLines().value(1), u"TANGGAL: 23-Nov-2026 s/d 22-Nov-2026"_s);
        auto& first = Part<QLineEdit>(window, "txtDate1");
        first.setFocus();
        Keys(u"31/2/2026");
        criteria.PressOk(); // refused: no report with another date
        EXPECT_TRUE(criteria.dialogs.Last().contains(u"Tanggal awal: \"31/2/2026\""_s));
        EXPECT_EQ(criteria.shownReports.size(), 1);
        Keys(u"22");
        criteria.PressOk();
        EXPECT_EQ(TextOf(window, "lblDateHint"), QString()) << "one day";
        Keys(u"⎈a2");
        criteria.PressOk();
        EXPECT_EQ(TextOf(window, "lblDateHint"), QString());
        EXPECT_EQ(criteria.ReportLines().value(1), u"TANGGAL: 02-Nov-2026 s/d 22-Nov-2026"_s);
        EXPECT_EQ(criteria.ReportLines().filter(u"|22-Nov-2026|"_s).size(), 2);
    });
}

TEST(frmRptCriteria, AFailureIsLoggedUnderItsRoutineAndLeavesTheFormerReport) {
    Criteria criteria;
    criteria.Open(u"AbsensiSumKary"_s, [&](QWidget& window) {
        criteria.PressOk();
        const QStringList before = criteria.ReportLines();
        criteria.Run(u"DROP TABLE [Employee Status]"_s);
        criteria.PressOk();
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(TextOf(window, "lblDone"), QString());
        EXPECT_EQ(criteria.ReportLines(), before);
    });
    EXPECT_EQ(criteria.dialogs.texts.size(), 1);
    EXPECT_EQ(criteria.shownReports.size(), 1);
    EXPECT_TRUE(criteria.IsLogged("frmRptCriteria.PrintSummaryReport"));
}

TEST(frmRptCriteria, AReportThatIsStoppedLeavesTheFormerOne) {
    Criteria criteria;
    criteria.Run(u"INSERT INTO Employee (NIP,Dept,Divisi) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT "
                 u"i+1 FROM n "
                 "WHERE i<3000) SELECT i,'P1','A' FROM n"_s);
    criteria.Open(u"AbsensiDivisi"_s, [&](QWidget& window) {
        criteria.PressOk();
        const QStringList before = criteria.ReportLines();
        Part<QWidget>(window, "txtDate1").setFocus();
        criteria.user.WhenIn(u"WorkProgress"_s, [](QWidget&) { Keys(u"⎋"); });
        Keys(u"1/1/1990⎇o");
        EXPECT_TRUE(KeyboardUser::WaitUntil(
            [&] { return TextOf(window, "lblDone") == u"Dibatalkan. Laporan sebelumnya tetap ada."_s; }));
        EXPECT_EQ(criteria.ReportLines(), before);
    });
    EXPECT_EQ(criteria.shownReports.size(), 1);
}

TEST(frmRptCriteria, AnUnknownReportCanOnlyBeLeft) {
    Criteria criteria;
    criteria.Open(u""_s, [&](QWidget& window) {
        EXPECT_FALSE(Part<QWidget>(window, "cmdOk").isEnabled());
        EXPECT_FALSE(Part<QWidget>(window, "txtDate1").isEnabled());
        EXPECT_TRUE(Part<QWidget>(window, "cmdCancel").hasFocus());
        Keys(u"⏎");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return !window.isVisible(); }));
    });
    EXPECT_TRUE(criteria.shownReports.isEmpty());
}
