#include "database/recordset.h"

#include "support/failures.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;

namespace {

class Recordsets : public CompanyTest {
protected:
    Recordset Employee(Connection& connection, const QString& nip) {
        return Recordset(connection, u"select * from employee where nip='%1'"_s.arg(nip));
    }
    QStringList Employees() { return RowsOf(u"select NIP,Nama,Dept,GP from Employee order by NIP"_s); }

    Connection& db = Db();
};

} // namespace

TEST_F(Recordsets, AddChangeAndEmptyFieldsInAnyLetterCase) {
    Recordset row = Employee(db, u"0012"_s);
    ASSERT_TRUE(row.AtEnd());
    row.AddNew();
    row.Set(u"nip"_s, u"0012"_s);
    row.Set(u"NAMA"_s, u"Budi"_s);
    EXPECT_TRUE(row.Field(u"gp"_s).IsNull());
    row.Update();
    EXPECT_EQ(Employees(), QStringList{u"0012|Budi|-|-"_s});
    row.Set(u"GP"_s, 9.15); // the added row stays the current one
    row.Set(u"Dept"_s, QString());
    row.Update();
    EXPECT_EQ(Employees(), QStringList{u"0012|Budi|-|9.15"_s});
    row.Set(u"GP"_s, FieldValue());
    row.Set(u"Dept"_s, u""_s);
    row.Update();
    row.Update(); // nothing changed since
    EXPECT_EQ(Employees(), QStringList{u"0012|Budi||-"_s});
    for (const QString& emptied : {QString(), u""_s}) { // null and empty are two values
        Recordset again = Employee(db, u"0012"_s);
        again.Set(u"Dept"_s, emptied);
        again.Update();
        EXPECT_EQ(Employee(db, u"0012"_s).Field(u"Dept"_s).IsNull(), emptied.isNull());
    }

    EXPECT_NE(FailureOf([&] { row.Set(u"Gaji"_s, 1); }), QString());
    EXPECT_NE(FailureOf([&] { row.Field(u"Gaji"_s); }), QString());
    EXPECT_NE(FailureOf([&] { Recordset(db, u"select 1"_s); }), QString());
}

TEST_F(Recordsets, EveryCharacterIsDataThere) {
    const QString odd = u"O'Brien \"x\"; -- [y] `z` #1# ? %1 :a Müller 工場 \U0001F600\n'' or '1'='1"_s;
    Recordset row = Employee(db, u"0012"_s);
    row.AddNew();
    row.Set(u"NIP"_s, u"0012"_s);
    row.Set(u"Nama"_s, odd);
    row.Update();
    Recordset again = Employee(db, u"0012"_s);
    EXPECT_EQ(again.Field(u"Nama"_s).Text(), odd);
    again.Set(u"Dept"_s, odd); // the row is found again by such values, too
    again.Update();
    EXPECT_EQ(Employee(db, u"0012"_s).Field(u"Dept"_s).Text(), odd);
}

TEST_F(Recordsets, AnotherDesksChangeIsNeverOverwritten) {
    const auto other = OtherDesk();
    const std::tuple<const char*, QString, QStringList> cases[] = {
        {"the same field", u"UPDATE Employee SET Nama='Ali'"_s, {u"0012|Ali||-"_s}},
        {"another field", u"UPDATE Employee SET GP=5"_s, {u"0012|Budi||5"_s}},
        {"a field emptied", u"UPDATE Employee SET Dept=NULL"_s, {u"0012|Budi|-|-"_s}},
        {"the key", u"UPDATE Employee SET NIP='0099'"_s, {u"0099|Budi||-"_s}},
        {"the row removed", u"DELETE FROM Employee"_s, {}},
    };
    for (const auto& [what, change, left] : cases) {
        SCOPED_TRACE(what);
        Run(u"DELETE FROM Employee"_s);
        Run(u"DELETE FROM [User]"_s);
        AddEmployee(u"0012"_s, u"Budi"_s, u"x"_s, u""_s);
        Recordset mine = Employee(db, u"0012"_s);
        other->ExecuteNative(change);
        EXPECT_THROW(mine.Update(), ConflictError) << "nothing to write, but what was read is gone";
        mine.Set(u"Nama"_s, u"Cici"_s);
        EXPECT_THROW(mine.Update(), ConflictError);
        EXPECT_EQ(Employees(), left);
    }
}

TEST_F(Recordsets, AKeyThatAnotherDeskAddedFirstIsRefused) {
    Recordset mine = Employee(db, u"0012"_s);
    OtherDesk()->ExecuteNative(u"INSERT INTO Employee (NIP,Nama) VALUES ('0012','Ali')"_s);
    mine.AddNew();
    mine.Set(u"NIP"_s, u"0012"_s);
    EXPECT_TRUE(FailureOf([&] { mine.Update(); }).contains(u"isi ganda"));
    EXPECT_EQ(Employees(), QStringList{u"0012|Ali|-|-"_s});
}

TEST_F(Recordsets, WhatIsTakenBackIsNeverWritten) {
    for (const QString& nip : {u"0001"_s, u"0002"_s})
        db.Execute(u"INSERT INTO Employee (NIP, Nama) VALUES (?,'Ali')"_s, {nip});
    Recordset rows(db, u"select * from Employee order by NIP"_s);
    rows.MoveTo(0);
    rows.Set(u"Nama"_s, u"Siti"_s);
    rows.CancelUpdate();
    rows.Set(u"Dept"_s, u"QC"_s);
    rows.Update();
    EXPECT_EQ(Employees(), (QStringList{u"0001|Ali|QC|-"_s, u"0002|Ali|-|-"_s}));
    rows.AddNew();
    rows.CancelUpdate();
    EXPECT_EQ(rows.RowCount(), 2);
    rows.MoveTo(1);
    OtherDesk()->Execute(u"UPDATE Employee SET Nama='Budi' WHERE NIP='0002'"_s);
    EXPECT_THROW(rows.Delete(), ConflictError);
    rows.MoveTo(0);
    rows.Delete();
    EXPECT_EQ(Employees(), QStringList{u"0002|Budi|-|-"_s});
}

TEST_F(Recordsets, ATransactionWritesAllOrNothing) {
    const auto other = OtherDesk();
    const auto seenByOther = [&] {
        Cursor rows = other->Query(u"select count(1) from Employee"_s);
        return rows.Next() ? rows.Text(0) : u"nothing"_s;
    };
    const auto add = [&](const QString& nip) {
        db.Execute(u"INSERT INTO Employee (NIP) VALUES (?)"_s, {nip});
    };
    TakenBack(db, [&] { add(u"0001"_s); });
    TakenBack(db, [&] { db.InTransaction([&] { add(u"0001"_s); }); });
    EXPECT_EQ(Employees(), QStringList());

    for (const auto& action : {u"ABORT"_s, u"ROLLBACK"_s, u"FAIL"_s}) {
        Run(u"CREATE TRIGGER stop BEFORE INSERT ON Employee WHEN NEW.NIP='0002' "
            "BEGIN SELECT RAISE(%1,'aturan kantor'); END"_s.arg(action));
        EXPECT_TRUE(FailureOf([&] {
                        db.InTransaction([&] {
                            add(u"0001"_s);
                            add(u"0002"_s);
                        });
                    }).contains(u"aturan kantor"))
            << action.toStdString();
        EXPECT_EQ(Employees(), QStringList()) << action.toStdString();
        Run(u"DROP TRIGGER stop"_s);
    }

    EXPECT_EQ(db.InTransaction([&] {
        db.InTransaction([&] { add(u"0003"_s); });
        return seenByOther();
    }),
              u"0"_s);
    EXPECT_EQ(seenByOther(), u"1"_s);
}

TEST_F(Recordsets, AWriterIsToldThatAnotherHoldsTheLock) {
    const auto other = OtherDesk();
    db.SetPatience(std::chrono::milliseconds(30));
    other->InTransaction([&] {
        EXPECT_TRUE(FailureOf([&] {
                        db.InTransaction([] { ADD_FAILURE() << "two write at once"; });
                    }).contains(u"sedang dikunci oleh program lain"));
        EXPECT_TRUE(FailureOf([&] { db.Execute(u"DELETE FROM Employee"_s); }).contains(u"dikunci"));
        EXPECT_EQ(Employees(), QStringList()); // reading goes on meanwhile
    });
}

TEST_F(Recordsets, TheChangeStampDiffersAfterEveryWriteAndOnlyThen) {
    const auto other = OtherDesk();
    const QString insert = u"INSERT INTO Division (DivKode) VALUES (?)"_s;
    int next = 0;
    const auto number = [&] { return QVariant(QString::number(++next)); };
    const std::tuple<const char*, std::function<void()>, bool> cases[] = {
        {"nothing", [] {}, false},
        {"own reading", [&] { RowsOf(u"select * from Division"_s); }, false},
        {"other's reading", [&] { other->Query(u"select * from Division"_s).Next(); }, false},
        {"own statement", [&] { db.Execute(insert, {number()}); }, true},
        {"own many", [&] { db.ExecuteMany(insert, {{number()}}); }, true},
        {"own many, the second failing",
         [&] {
             const QVariant twice = number();
             EXPECT_NE(FailureOf([&] { db.ExecuteMany(insert, {{twice}, {twice}}); }), QString());
         },
         true},
        {"other's statement", [&] { other->Execute(insert, {number()}); }, true},
        {"other's transaction taken back",
         [&] { TakenBack(*other, [&] { other->Execute(insert, {number()}); }); }, false},
    };
    for (const auto& [what, action, differs] : cases) {
        const ChangeStamp before = db.Changes();
        action();
        EXPECT_EQ(db.Changes() != before, differs) << what;
    }
    ChangeStamp inside;
    TakenBack(db, [&] {
        db.Execute(insert, {number()});
        inside = db.Changes();
    });
    EXPECT_NE(db.Changes(), inside);
}
