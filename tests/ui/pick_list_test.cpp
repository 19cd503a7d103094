#include "ui/pick_list.h"

#include "support/window_company.h"

#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

/// A list over the employees, opened under a field of its own window.
class OpenList : public WindowFixture {
public:
    OpenList() {
        field = new QLineEdit(&window);
        window.setObjectName(u"host"_s);
        WindowFixture::Show(window);
        for (int i = 1; i <= 30; ++i)
            AddEmployee(QString::number(100 + i), i % 2 ? u"Ganjil %1"_s.arg(i) : u"Genap %1"_s.arg(i),
                        u"x"_s);
        list = new PickList(program, &window);
        list->ConnectionString = Db().ConnectionString();
        list->SqlText = u"select NIP, Nama from Employee ORDER BY NIP"_s;
        QObject::connect(list, &PickList::LOV_AfterListClose, list,
                         [this](QWidget* control, const QVariantMap& values) {
                             ++closed;
                             anchor = control;
                             picked = values;
                         });
    }
    void Show() {
        list->ShowList(field, -1.0, -1.0);
        EXPECT_TRUE(
            KeyboardUser::WaitUntil([this] { return KeyboardUser::InFront() == list || closed > 0; }));
    }

    QWidget window;
    QLineEdit* field = nullptr;
    PickList* list = nullptr;
    int closed = 0;
    QWidget* anchor = nullptr;
    QVariantMap picked;
};

} // namespace

TEST(PickList, TypingFiltersKeysWalkEnterTakesTheRowAndEscapeNothing) {
    OpenList open;
    open.Show();
    const auto& grid = Part<QTableView>(*open.list, "grdList");
    Keys(u"genap");
    EXPECT_EQ(grid.model()->rowCount(), 15);
    Keys(u" 30");
    EXPECT_EQ(grid.model()->rowCount(), 1);
    Keys(u"x");
    EXPECT_EQ(grid.model()->rowCount(), 0);
    Keys(u"⏎");
    EXPECT_EQ(open.closed, 0);
    Keys(u"⎋");
    EXPECT_EQ(open.closed, 1);
    EXPECT_FALSE(open.list->ItemSelected());
    EXPECT_TRUE(open.picked.isEmpty());

    open.Show();
    EXPECT_EQ(grid.model()->rowCount(), 30);
    Keys(u"↓↓↑⏎");
    EXPECT_TRUE(open.list->ItemSelected());
    EXPECT_EQ(open.anchor, open.field);
    EXPECT_EQ(open.picked.value(u"NIP"_s).toString(), u"102"_s);
    EXPECT_EQ(open.picked.value(u"Nama"_s).toString(), u"Genap 2"_s);
}

TEST(PickList, OpenedByItselfItSaysWhyAndTakesNothingUntilARowIsChosen) {
    OpenList open;
    open.list->Reason = u"Kode XX tidak dikenal."_s;
    for (const auto& [keys, picked] : {std::pair{u"⏎"_s, u""_s},
                                       {u"g⌫⏎"_s, u""_s},
                                       {u" ⏎"_s, u""_s},
                                       {u"genap⏎"_s, u"102"_s},
                                       {u"↓⏎"_s, u"101"_s},
                                       {u"↑⏎"_s, u"101"_s},
                                       {u"↓⇟⇟⇟⏎"_s, u"130"_s},
                                       {u"⇟⇟⇞⏎"_s, u"110"_s}}) {
        open.closed = 0;
        open.Show();
        const auto& reason = Part<QLabel>(*open.list, "lblReason");
        EXPECT_TRUE(reason.isVisible());
        EXPECT_EQ(reason.text(), open.list->Reason);
        Keys(keys);
        EXPECT_EQ(open.closed, picked.isEmpty() ? 0 : 1) << keys.toStdString();
        Keys(u"⎋");
        EXPECT_EQ(open.picked.value(u"NIP"_s).toString(), picked) << keys.toStdString();
    }
}

TEST(PickList, AFailingQueryOrAnotherConnectionSelectsNothing) {
    OpenList open;
    open.list->SqlText = u"select Tiada from Employee"_s;
    open.Show();
    EXPECT_EQ(open.closed, 1);
    EXPECT_FALSE(open.list->ItemSelected());
    open.list->ConnectionString = u"Data Source=elsewhere;"_s;
    open.Show();
    EXPECT_EQ(open.closed, 2);
    EXPECT_EQ(open.dialogs.texts.size(), 2);
}

TEST(PickList, OpenedForAFieldItHandsOverAChosenRowOnlyAndGoes) {
    OpenList open;
    delete open.list;
    for (const int key : {Qt::Key_Escape, Qt::Key_Return}) {
        OpenPickList(open.program, *open.field, u"select NIP from Employee ORDER BY NIP"_s,
                     [&open](const QVariantMap& chosen) {
                         ++open.closed;
                         open.picked = chosen;
                     });
        KeyboardUser::Press(static_cast<Qt::Key>(key));
        EXPECT_EQ(open.closed, key == Qt::Key_Return ? 1 : 0);
        EXPECT_TRUE(KeyboardUser::WaitUntil([&open] { return !open.window.findChild<PickList*>(); }));
    }
    EXPECT_EQ(open.picked.value(u"NIP"_s).toString(), u"101"_s);
}

TEST(PickList, StaysOnTheScreenBesideItsEdgeAndWithLongTexts) {
    OpenList open;
    // This platform moves every window in by a frame of its own.
    const QRect room = open.window.screen()->availableGeometry().adjusted(0, 0, 2, 2);
    for (const QString& name : {u"Siti"_s, QString(1000, u'W')}) {
        open.Db().Execute(u"update Employee set Nama=?"_s, {name});
        open.window.move(room.bottomRight());
        open.Show();
        EXPECT_TRUE(room.contains(open.list->geometry())) << name.size();
        Keys(u"⎋");
        open.closed = 0;
    }
    open.Db().Execute(u"update Employee set Nama='Siti'"_s);
    open.window.move(0, room.bottom() - 60);
    open.Show();
    EXPECT_LT(open.list->geometry().bottom(), open.field->mapToGlobal(QPoint()).y()) << "it covers no field";
}
