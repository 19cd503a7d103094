#include "editing/frmEditAbsensiOne.h"

#include "support/window_company.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QShowEvent>

using namespace Qt::StringLiterals;
using Answer = Dialogs::Answer;

namespace {

const QString Headers =
    u"select TCID, NIP, Status, Keterangan, NormalHours, OTHours, NormalAmount, OTAmount, "
    "TotalUangMakan from TimeCardHeader order by TCID"_s;
const QString Days = u"select TCID, Tanggal, TimeIN, TimeOUT, TimeINOT, TimeOutOT, ShiftCode, BeriUangMakan "
                     "from TimeCardDetail order by TCID"_s;

/// The editor over one employee's card, worked at by keyboard while it is open.
class CardEditor : public WindowFixture {
public:
    /// With that status the employee has a card of the day, else none.
    explicit CardEditor(const QString& status = {}, const QString& timeIn = u"2026-11-22 07:45:00"_s,
                        const QString& timeOut = u"2026-11-22 17:00:00"_s) {
        AddEmployee(u"0012"_s, u"Siti Aminah"_s, u"x"_s);
        Run(u"UPDATE Employee SET GP=150000, RateOT=10000, TMakan=12500, EmpType='HRN'"_s);
        Run(u"INSERT INTO Shift VALUES ('P','1899-12-30 08:00:00','1899-12-30 17:00:00')"_s);
        Run(u"INSERT INTO AbsenTipe VALUES ('I','Izin'),('S','Sakit')"_s);
        if (status.isEmpty())
            return;
        AddCard(u"T202611220012"_s, u"0012"_s, status, u"2026-11-22"_s, timeIn, timeOut);
        Run(u"UPDATE TimeCardDetail SET BeriUangMakan=1"_s);
    }

    /// Opens the editor, does the work in it and gives the dialog's result. What is left open is closed.
    int Open(const std::function<void(QWidget&)>& work) {
        frmEditAbsensiOne editor(program, u"T202611220012"_s, u"0012"_s, skin, nullptr);
        QObject::connect(&editor, &frmEditAbsensiOne::Saved, &editor, [this] { ++saved; });
        return WindowFixture::Open(editor, work, [](QWidget&) { Keys(u"⎇b"); });
    }

    int saved = 0;
};

/// Replaces all that a box holds, by typing.
void TypeInto(QWidget& window, const char* name, const QString& text) {
    Part<QLineEdit>(window, name).setFocus();
    Keys(u"⎈a");
    Keys(text);
}

void Press(const char* name, QWidget& window) {
    Part<QAbstractButton>(window, name).setFocus();
    Keys(u" ");
}

} // namespace

TEST(frmEditAbsensiOne, ShowsTheCardAndSavesNothingUnasked) {
    CardEditor editor(u"OUT"_s, u"2026-11-22 07:45:12"_s, u"2026-11-22 17:03:30"_s);
    const QStringList before = editor.RowsOf(Headers) + editor.RowsOf(Days);
    const int result = editor.Open([](QWidget& window) {
        EXPECT_EQ(
            TextOf(window, {"lblNama", "txtNIK", "txtTCID", "txtTanggal", "txtStatus", "txtTIN", "txtTOUT"}),
            u"Siti Aminah|0012|T202611220012|22-Nov-2026|OUT|22-Nov-2026 07:45|22-Nov-2026 17:03"_s);
        EXPECT_EQ(Part<QComboBox>(window, "txtStatus").count(), 3);
        EXPECT_TRUE(Part<QCheckBox>(window, "chkTimeIO").isChecked());
        EXPECT_TRUE(Part<QWidget>(window, "txtTIN").isEnabled());
        EXPECT_FALSE(Part<QCheckBox>(window, "chkOTIO").isChecked());
        for (const char* name : {"txtOTIN", "txtOTOUT", "txtOTHrs"})
            EXPECT_FALSE(Part<QWidget>(window, name).isEnabled()) << name;
        EXPECT_TRUE(Part<QCheckBox>(window, "chkUangMakan").isChecked());
        Keys(u"⎋");
    });
    EXPECT_EQ(result, QDialog::Rejected);
    EXPECT_TRUE(editor.dialogs.questions.isEmpty());
    EXPECT_EQ(editor.RowsOf(Headers) + editor.RowsOf(Days), before);
}

TEST(frmEditAbsensiOne, SavesWholeHoursHalvesToEvenAndKeepsWhatIsNotTicked) {
    for (const auto& [typed, hours, out] : {std::tuple{u"22Nov2026 1630"_s, u"8"_s, u"2026-11-22 16:30:00"_s},
                                            {u"22/11/2026 17:30"_s, u"10"_s, u"2026-11-22 17:30:00"_s},
                                            {u"+1 8.00"_s, u"24"_s, u"2026-11-23 08:00:00"_s},
                                            {u"0605"_s, u"22"_s, u"2026-11-23 06:05:00"_s}}) {
        CardEditor editor(u"OUT"_s, u"2026-11-22 08:00:00"_s, u"2026-11-22 12:00:00"_s);
        editor.Run(u"UPDATE TimeCardHeader SET OTHours=1.15"_s);
        editor.Run(u"UPDATE TimeCardDetail SET TimeINOT='2026-11-22 17:00:00', ShiftCode='P'"_s);
        const int result = editor.Open([&, typed = typed](QWidget& window) {
            TypeInto(window, "txtTOUT", typed);
            Part<QLineEdit>(window, "txtNAmount").setText(u"12500.75 rupiah"_s);
            Part<QLineEdit>(window, "txtOTAmount").setText(u"bukan angka"_s);
            Part<QLineEdit>(window, "txtKeterangan").setText(u"Lupa 'absen' — é"_s);
            Keys(u"⎇s");
            KeyboardUser::WaitUntil([&] { return !window.isVisible(); });
        });
        EXPECT_EQ(result, QDialog::Accepted);
        EXPECT_EQ(editor.saved, 1);
        EXPECT_EQ(editor.RowsOf(Headers),
                  QStringList{u"T202611220012|0012|OUT|Lupa 'absen' — é|%1|1.15|12500.75|0|-"_s.arg(hours)});
        EXPECT_EQ(
            editor.RowsOf(Days),
            QStringList{
                u"T202611220012|2026-11-22|2026-11-22 08:00:00|%1|2026-11-22 17:00:00|-|P|1"_s.arg(out)});
    }
}

TEST(frmEditAbsensiOne, MakesACardForADayThatHasNone) {
    CardEditor editor;
    editor.clock.now = Moment(u"2026-11-25 09:00:00");
    editor.Open([](QWidget& window) {
        EXPECT_TRUE(Part<QComboBox>(window, "txtStatus").hasFocus());
        Keys(u"S");
        EXPECT_EQ(TextOf(window, "lblStatusText"), u"Sakit"_s);
        Press("cmdButtons_1", window);
    });
    EXPECT_EQ(editor.RowsOf(Headers), QStringList{u"T202611220012|0012|S|-|-|-|0|0|-"_s});
    EXPECT_EQ(editor.RowsOf(Days), QStringList{u"T202611220012|2026-11-22|-|-|-|-|-|0"_s});
}

TEST(frmEditAbsensiOne, ComputesAfterSavingWhatWasTyped) {
    CardEditor editor(u"OUT"_s);
    editor.dialogs.answers = {Answer::Cancel, Answer::No, Answer::Yes};
    editor.Open([&](QWidget& window) {
        TypeInto(window, "txtTOUT", u"22Nov2026 1600"_s);
        Press("cmdCalcHrs", window);
        EXPECT_EQ(TextOf(window, "txtNHrs"), QString());
        Press("cmdCalcHrs", window);
        EXPECT_EQ(TextOf(window, {"txtNHrs", "txtTOUT"}), u"9.15|22-Nov-2026 17:00"_s) << "as it is stored";
        EXPECT_EQ(editor.saved, 1) << "what it computed is told, too";
        TypeInto(window, "txtTOUT", u"22Nov2026 1630"_s);
        Press("cmdCalcHrs", window);
        EXPECT_EQ(TextOf(window, {"txtNHrs", "txtOTHrs", "txtNAmount", "txtOTAmount", "txtOTIN"}),
                  u"9.15|0.3|150000|3000|22-Nov-2026 17:00"_s);
        EXPECT_TRUE(TextOf(window, "lblTotalUangMakan").contains(u"12500"_s));
        Keys(u"⎋");
    });
    EXPECT_EQ(editor.dialogs.questions.size(), 3);
    EXPECT_EQ(editor.RowsOf(Headers), QStringList{u"T202611220012|0012|OUT|-|9.15|0.3|150000|3000|12500"_s});
    EXPECT_EQ(editor.RowsOf(Days),
              QStringList{u"T202611220012|2026-11-22|2026-11-22 07:45:00|2026-11-22 16:30:00|"
                          "2026-11-22 17:00:00|2026-11-22 16:30:00|P|1"_s});
}

TEST(frmEditAbsensiOne, AForgottenTimeStartsOnTheCardsDay) {
    CardEditor editor(u"IN"_s, u"2026-11-22 07:45:12"_s, {});
    editor.clock.now = Moment(u"2026-11-25 09:00:00");
    editor.dialogs.answers = {Answer::No}; // the status stays IN
    editor.Open([](QWidget& window) {
        EXPECT_FALSE(Part<QCheckBox>(window, "chkTimeIO").isChecked());
        EXPECT_EQ(TextOf(window, "txtTOUT"), u"25-Nov-2026 00:00"_s);
        Keys(u"⎇i");
        EXPECT_TRUE(
            KeyboardUser::WaitUntil([&] { return Part<QCheckBox>(window, "chkTimeIO").isChecked(); }));
        Press("chkOTIO", window);
        EXPECT_EQ(TextOf(window, "txtTIN"), u"22-Nov-2026 07:45"_s);
        EXPECT_FALSE(TextOf(window, "lblNormalHint").isEmpty()) << "no departure typed yet";
        EXPECT_EQ(TextOf(window, {"txtTOUT", "txtOTIN", "txtOTOUT"}),
                  u"22-Nov-2026 00:00|22-Nov-2026 00:00|22-Nov-2026 00:00"_s);
        Part<QWidget>(window, "chkTimeIO").setFocus();
        Keys(u"↹↹16:30↹");
        EXPECT_EQ(TextOf(window, "lblNormalHint"), QString());
        for (const char* name : {"chkOTIO", "chkTimeIO", "chkTimeIO"})
            Press(name, window);
        EXPECT_EQ(TextOf(window, "txtTOUT"), u"22-Nov-2026 16:30"_s) << "what was typed stays";
        Press("cmdButtons_1", window);
    });
    EXPECT_EQ(editor.RowsOf(Days),
              QStringList{u"T202611220012|2026-11-22|2026-11-22 07:45:12|2026-11-22 16:30:00|-|-|-|1"_s});
}

TEST(frmEditAbsensiOne, OvertimeIsOfItsOwnBoxes) {
    CardEditor editor(u"OUT"_s);
    editor.Open([](QWidget& window) {
        for (const char* box : {"chkTimeIO", "chkOTIO", "chkUangMakan"})
            Press(box, window);
        EXPECT_EQ(TextOf(window, "lblOvertimeHint"), QString()) << "nothing typed yet";
        TypeInto(window, "txtOTIN", u"1700"_s);
        Keys(u"↹");
        EXPECT_NE(TextOf(window, "lblOvertimeHint"), QString());
        QShowEvent again; // as when the window was minimized
        QApplication::sendEvent(&window, &again);
        TypeInto(window, "txtOTOUT", u"1930"_s);
        Press("cmdButtons_1", window);
    });
    EXPECT_EQ(editor.RowsOf(Headers), QStringList{u"T202611220012|0012|OUT|-|-|2|0|0|-"_s});
    EXPECT_EQ(editor.RowsOf(Days),
              QStringList{u"T202611220012|2026-11-22|2026-11-22 07:45:00|2026-11-22 17:00:00|"
                          "2026-11-22 17:00:00|2026-11-22 19:30:00|-|0"_s});
}

TEST(frmEditAbsensiOne, ReloadingShowsTheCardAsItStandsNow) {
    CardEditor editor(u"OUT"_s);
    const auto other = editor.OtherDesk();
    editor.Open([&](QWidget& window) {
        Press("cmdCalcHrs", window);
        EXPECT_TRUE(Part<QCheckBox>(window, "chkOTIO").isChecked());
        other->Execute(u"UPDATE TimeCardDetail SET TimeOUT=NULL, TimeINOT=NULL, TimeOutOT=NULL"_s);
        other->Execute(u"UPDATE TimeCardHeader SET Status='IN'"_s);
        for (int time = 1; time <= 2; ++time) {
            Press("cmdCalcHrs", window);
            for (const char* name : {"chkTimeIO", "chkOTIO"})
                EXPECT_FALSE(Part<QCheckBox>(window, name).isChecked()) << name;
            EXPECT_EQ(TextOf(window, {"txtTOUT", "txtOTIN", "txtOTOUT"}),
                      u"22-Nov-2026 00:00|22-Nov-2026 00:00|22-Nov-2026 00:00"_s);
            EXPECT_EQ(TextOf(window, {"txtNHrs", "txtStatus"}), u"0|IN"_s);
            EXPECT_EQ(Part<QComboBox>(window, "txtStatus").count(), 3);
        }
        Keys(u"⎋");
    });
    EXPECT_TRUE(editor.dialogs.questions.isEmpty()) << "nothing was typed";
}

TEST(frmEditAbsensiOne, AfterAComputationThatFailsTheSavedCardCanBeSavedAgain) {
    CardEditor editor(u"OUT"_s);
    editor.Run(u"CREATE TRIGGER refuse BEFORE UPDATE OF ShiftCode ON TimeCardDetail "
               "BEGIN SELECT RAISE(ABORT,'disk on fire'); END"_s);
    editor.dialogs.answers = {Answer::Yes};
    const int result = editor.Open([&](QWidget& window) {
        Part<QLineEdit>(window, "txtKeterangan").setText(u"satu"_s);
        Press("cmdCalcHrs", window);
        EXPECT_EQ(editor.dialogs.texts.size(), 1);
        EXPECT_EQ(TextOf(window, "txtKeterangan"), u"satu"_s);
        Press("cmdCalcHrs", window);
        EXPECT_EQ(editor.dialogs.texts.size(), 2);
        EXPECT_EQ(editor.dialogs.questions.size(), 1) << "it is saved already";
        Part<QLineEdit>(window, "txtKeterangan").setText(u"dua"_s);
        Press("cmdButtons_1", window);
    });
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(editor.RowsOf(u"select Keterangan from TimeCardHeader"_s), QStringList{u"dua"_s});
}

TEST(frmEditAbsensiOne, EnterWalksThroughTheFieldsAndPressesAButton) {
    CardEditor editor(u"OUT"_s);
    editor.Run(
        u"UPDATE TimeCardDetail SET TimeINOT='2026-11-22 17:00:00', TimeOutOT='2026-11-22 18:00:00'"_s);
    const int result = editor.Open([&](QWidget& window) {
        for (const char* name :
             {"txtStatus", "chkTimeIO", "txtTIN", "txtTOUT", "txtNAmount", "chkOTIO", "txtOTIN", "txtOTOUT",
              "txtOTAmount", "txtKeterangan", "chkUangMakan", "cmdCalcHrs"}) {
            EXPECT_TRUE(Part<QWidget>(window, name).hasFocus()) << name;
            Keys(u"⏎");
        }
        EXPECT_EQ(TextOf(window, "txtNHrs"), u"9.15"_s);
        Part<QWidget>(window, "cmdButtons_2").setFocus();
        Part<QLineEdit>(window, "txtKeterangan").setText(u"dibuang"_s);
        KeyboardUser::Press(Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(result, QDialog::Rejected);
    EXPECT_TRUE(editor.dialogs.questions.isEmpty());
    EXPECT_EQ(editor.RowsOf(u"select Keterangan from TimeCardHeader"_s), QStringList{u"-"_s});
}

TEST(frmEditAbsensiOne, AmountsSayWhatOfThemCountsAndSecondsAreThoseOfTheCardOrNone) {
    CardEditor editor(u"OUT"_s, u"2026-11-22 07:45:12"_s, u"2026-11-22 17:03:30"_s);
    editor.Run(u"UPDATE TimeCardHeader SET NormalAmount=0.00002, OTAmount=1250000.5"_s);
    editor.Open([&](QWidget& window) {
        EXPECT_EQ(TextOf(window, {"txtNAmount", "txtOTAmount"}), u"0|1250000.5"_s) << "no exponent";
        TypeInto(window, "txtNAmount", u"1,250,000"_s);
        EXPECT_TRUE(TextOf(window, "lblNormalHint").contains(u"\",\""_s));
        TypeInto(window, "txtOTAmount", u"Rp 1,250,000.75"_s);
        EXPECT_EQ(TextOf(window, "txtOTAmount"), u"1250000.75"_s) << "only what makes a number can be typed";
        EXPECT_EQ(TextOf(window, "lblOvertimeHint"), QString());
        TypeInto(window, "txtTIN", u"21Nov2026"_s);
        TypeInto(window, "txtTOUT", u"1704"_s);
        editor.dialogs.answers = {Answer::No, Answer::Yes};
        Press("cmdButtons_1", window);
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(editor.dialogs.questions[0].startsWith(u"1,250,000 akan disimpan sebagai 1. Simpan?"_s));
        Press("cmdButtons_1", window);
    });
    EXPECT_EQ(editor.RowsOf(u"select NormalAmount, OTAmount from TimeCardHeader"_s),
              QStringList{u"1|1250000.75"_s});
    EXPECT_EQ(editor.RowsOf(u"select TimeIN, TimeOUT from TimeCardDetail"_s),
              QStringList{u"2026-11-21 07:45:12|2026-11-22 17:04:00"_s});
}

TEST(frmEditAbsensiOne, AnotherDesksChangeIsNotOverwrittenAndTheTypingStays) {
    const QString later = u"UPDATE TimeCardDetail SET TimeOUT='2026-11-22 18:00:00'"_s;
    // Without a time typed only the header is this desk's, and its hours are those of times no longer there.
    const QString stored = u"TimeOUT sudah diganti komputer lain menjadi 22-Nov-2026 18:00:00."_s;
    for (const auto& [typedOut, change, left, told] :
         {std::tuple{u"22Nov2026 1630"_s, later, QStringList{u"2026-11-22 18:00:00"_s},
                     stored + u" Yang Anda ketik (22-Nov-2026 16:30:00) tidak disimpan."_s},
          {QString(), later, {u"2026-11-22 18:00:00"_s}, stored + u"\nTidak ada yang disimpan."_s},
          {QString(),
           u"DELETE FROM TimeCardDetail"_s,
           {},
           u"kartu absen T202611220012 (0012, 22-Nov-2026) sudah diubah"_s}}) {
        SCOPED_TRACE((typedOut + change).toStdString());
        CardEditor editor(u"OUT"_s);
        const auto other = editor.OtherDesk();
        const int result =
            editor.Open([&, typedOut = typedOut, change = change, told = told](QWidget& window) {
                Part<QLineEdit>(window, "txtKeterangan").setText(u"dari sini"_s);
                if (!typedOut.isEmpty())
                    TypeInto(window, "txtTOUT", typedOut);
                other->Execute(change);
                for (int attempt = 1; attempt <= 2; ++attempt) {
                    Press("cmdButtons_1", window);
                    EXPECT_EQ(editor.dialogs.texts.size(), attempt);
                    EXPECT_TRUE(editor.dialogs.Last().contains(told)) << editor.dialogs.Last().toStdString();
                    EXPECT_TRUE(window.isVisible());
                }
                EXPECT_EQ(TextOf(window, "txtKeterangan"), u"dari sini"_s);
            });
        EXPECT_EQ(result, QDialog::Rejected);
        EXPECT_EQ(editor.saved, 0);
        EXPECT_EQ(editor.RowsOf(u"select Keterangan, NormalHours from TimeCardHeader"_s),
                  QStringList{u"-|-"_s});
        EXPECT_EQ(editor.RowsOf(u"select TimeOUT from TimeCardDetail"_s), left);
    }
}

TEST(frmEditAbsensiOne, ADepartureBeforeTheArrivalIsStoredOnlyWhenWanted) {
    for (const auto& [box, typed, answer, stored] :
         {std::tuple{"txtTOUT", u"21Nov2026 0500"_s, Answer::No, u"17:00:00|16:30:00"_s},
          {"txtTOUT", u"21Nov2026 0500"_s, Answer::Yes, u"05:00:00|16:30:00"_s},
          {"txtOTOUT", u"1600"_s, Answer::No, u"17:00:00|16:30:00"_s},
          {"txtKeterangan", u"x"_s, Answer::No, u"17:00:00|16:30:00"_s}}) {
        CardEditor editor(u"OUT"_s);
        // The computation itself puts the end of overtime before its start when someone leaves early.
        editor.Run(
            u"UPDATE TimeCardDetail SET TimeINOT='2026-11-22 17:00:00', TimeOutOT='2026-11-22 16:30:00'"_s);
        editor.dialogs.answers = {answer};
        editor.Open([&, box = box, typed = typed](QWidget& window) {
            TypeInto(window, box, typed);
            Press("cmdButtons_1", window);
        });
        EXPECT_EQ(editor.dialogs.questions.size(), box == std::string("txtKeterangan") ? 0 : 1) << box;
        EXPECT_EQ(editor.RowsOf(u"select Mid(TimeOUT,12,8), Mid(TimeOutOT,12,8) from TimeCardDetail"_s),
                  QStringList{stored});
    }
}

TEST(frmEditAbsensiOne, ADepartureOffersOut) {
    for (const auto& [answer, status, out] : {std::tuple{Answer::Yes, u"OUT"_s, u"2026-11-22 17:05:00"_s},
                                              {Answer::No, u"IN"_s, u"2026-11-22 17:05:00"_s},
                                              {Answer::Cancel, u"IN"_s, u"-"_s}}) {
        CardEditor editor(u"IN"_s, u"2026-11-22 07:45:12"_s, {});
        editor.Run(u"INSERT INTO [Employee Status] VALUES (1,'IN',''),(2,'OUT',''),(3,'S','')"_s);
        editor.dialogs.answers = {answer};
        editor.Open([&](QWidget& window) {
            const auto& list = Part<QComboBox>(window, "txtStatus");
            QStringList offered;
            for (int i = 0; i < list.count(); ++i)
                offered << list.itemText(i);
            EXPECT_EQ(offered.join(u' '), u"I S IN OUT"_s);
            Part<QWidget>(window, "chkTimeIO").setFocus();
            Keys(u" ↹↹1705");
            Press("cmdButtons_1", window);
        });
        EXPECT_EQ(editor.dialogs.questions.size(), 1);
        EXPECT_EQ(editor.RowsOf(u"select Status, TimeOUT from TimeCardHeader, TimeCardDetail"_s),
                  QStringList{status + u'|' + out});
    }
}

TEST(frmEditAbsensiOne, AnAmountTooLargeForMoneyCanBeLookedAtAndLeft) {
    for (const bool compute : {false, true}) {
        CardEditor editor(u"OUT"_s);
        editor.Run(u"UPDATE TimeCardHeader SET NormalAmount=1e15"_s);
        editor.Open([&](QWidget& window) {
            EXPECT_EQ(TextOf(window, "txtNAmount"), u"1000000000000000"_s);
            if (compute)
                Press("cmdCalcHrs", window);
            EXPECT_EQ(TextOf(window, "txtNAmount") == u"150000"_s, compute);
            Keys(u"⎋");
            EXPECT_FALSE(window.isVisible());
        });
        EXPECT_TRUE(editor.dialogs.texts.isEmpty() && editor.dialogs.questions.isEmpty());
    }
}

TEST(frmEditAbsensiOne, LeavingWithUnsavedChangesAsksExceptByBatal) {
    // A time that cannot be read is a change, too, but none that can be saved.
    for (const auto& [box, answer, leaves, keterangan] :
         {std::tuple{"txtKeterangan", Answer::Cancel, false, u"-"_s},
          {"txtKeterangan", Answer::No, true, u"-"_s},
          {"txtKeterangan", Answer::Yes, true, u"baru"_s},
          {"txtTOUT", Answer::No, true, u"-"_s},
          {"txtTOUT", Answer::Yes, false, u"-"_s}}) {
        SCOPED_TRACE(box + std::to_string(static_cast<int>(answer)));
        CardEditor editor(u"OUT"_s);
        editor.dialogs.answers = {answer};
        editor.Open([&, box = box, leaves = leaves](QWidget& window) {
            TypeInto(window, box, u"baru"_s);
            Keys(u"⎋");
            EXPECT_EQ(window.isVisible(), !leaves);
        });
        EXPECT_EQ(editor.saved, keterangan == u"baru"_s ? 1 : 0);
        EXPECT_EQ(editor.dialogs.questions.size(), 1);
        EXPECT_EQ(editor.RowsOf(u"select Keterangan from TimeCardHeader"_s), QStringList{keterangan});
    }
}
