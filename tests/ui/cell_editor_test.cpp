#include "ui/cell_editor.h"

#include "core/text_table.h"
#include "database/database_error.h"
#include "support/window_company.h"
#include "ui/data_grid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// Texts that can be written.
class Sheet : public modGeneral::TextGrid {
public:
    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        if (role != Qt::EditRole)
            return false;
        SetText(index.row(), index.column(), value.toString());
        return true;
    }
};

/// A grid of forty rows: serial number, a code that is checked (A and TL are listed), a plain column, a
/// column with a pick list that is not checked, and a locked one.
class Host : public WindowFixture {
public:
    enum Column { Code = 1, Plain, Picked, Locked };

    Host() {
        sheet.SetHeaders(modGeneral::SetupGrid({u"Code"_s, u"Plain"_s, u"Picked"_s, u"Locked"_s}));
        std::vector<QStringList> rows;
        for (int i = 1; i <= 40; ++i)
            rows.push_back({QString::number(i), u"A"_s, u"old"_s, u""_s, u"x"_s});
        sheet.SetRows(std::move(rows));
        window.setObjectName(u"host"_s);
        window.resize(600, 300);
        grid = new DataGrid(&window);
        grid->setGeometry(0, 0, 600, 260);
        grid->setModel(&sheet);
        elsewhere = new QLineEdit(&window);
        elsewhere->setGeometry(0, 265, 200, 30);
        CellEditing editing;
        editing.pickListColumns = {Code, Picked};
        editing.checkedColumn = Code;
        editing.mayEdit = [](const QModelIndex& cell) { return cell.column() != Locked; };
        editing.check = [this](const QModelIndex&, const QString& code) -> std::optional<QString> {
            if (code.toUpper() == u"A"_s || code.toUpper() == u"TL"_s)
                return code.toUpper();
            return std::nullopt;
        };
        editing.openPickList = [this](QLineEdit& anchor, const QString& reason) {
            pickedUnder << anchor.geometry();
            reasons << reason;
        };
        editing.saveRow = [this](int row) {
            saved << row;
            if (failing)
                throw std::runtime_error("locked");
            return true;
        };
        editing.tell = [this](const QString& text) { told << text; };
        editing.secretColumns = {Locked};
        editing.enterGoes = CellEditing::EnterGoes::Right;
        editing.gridEnterKey = [this](const QModelIndex&) { editor->OpenOnCurrentCell(); };
        editing.gridDeleteKey = [this](const QModelIndex& cell) { deleted << cell.row(); };
        editor = new CellEditor(program, *grid, editing);
        Show(window);
        grid->setFocus();
        Go(0, Plain);
    }

    void Go(int row, int column) { grid->setCurrentIndex(sheet.index(row, column)); }
    QLineEdit& Text1() { return Part<QLineEdit>("Text1"); }
    QToolButton& CmdLov() { return Part<QToolButton>("cmdLov"); }
    QRect Cell() { return grid->visualRect(grid->currentIndex()); }

    Sheet sheet;
    QWidget window;
    DataGrid* grid = nullptr;
    QLineEdit* elsewhere = nullptr;
    CellEditor* editor = nullptr;
    QList<int> saved;
    QList<int> deleted;
    QList<QRect> pickedUnder;
    QStringList reasons;
    QStringList told;
    bool failing = false;
};

} // namespace

TEST(CellEditor, OpensOnTheKeysThatBeginAText) {
    const std::pair<char, bool> keys[] = {
        {'a', true}, {'Z', true},  {'0', true},  {':', true},  {'@', true},  {'%', true},  {'-', true},
        {'{', true}, {' ', false}, {'.', false}, {'/', false}, {'[', false}, {'_', false}, {'+', false}};
    for (const auto& [key, opens] : keys) {
        Host host;
        Keys(QString(QLatin1Char(key)));
        EXPECT_EQ(host.Text1().isVisible(), opens) << key;
        if (opens) {
            EXPECT_EQ(host.Text1().text(), QString(QLatin1Char(key))) << "in place of what the cell held";
            EXPECT_EQ(host.Text1().geometry(), host.Cell());
            EXPECT_TRUE(host.Text1().hasFocus());
        }
        Keys(u"⎋");
        EXPECT_EQ(host.sheet.Text(0, Host::Plain), u"old"_s) << key;
    }
}

TEST(CellEditor, DoesNotOpenOnFixedAndLockedCellsNorOnCommands) {
    Host host;
    for (const int column : {0, static_cast<int>(Host::Locked)}) {
        host.Go(0, column);
        Keys(u"a②");
        EXPECT_TRUE(host.Text1().isHidden()) << column;
    }
    host.Go(0, Host::Plain);
    Keys(u"⎈a");
    EXPECT_TRUE(host.Text1().isHidden());
    Keys(u"⌦"); // of all rows
    EXPECT_EQ(host.deleted, QList<int>());
    Keys(u"→⌦");
    EXPECT_EQ(host.deleted, QList<int>{0});
}

TEST(CellEditor, SavesARowOnceWhenTheCursorLeavesIt) {
    Host host;
    Keys(u"new");
    for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageDown})
        KeyboardUser::Press(key); // what is typed stays where it is
    Keys(u"⏎");
    EXPECT_EQ(host.sheet.Text(0, Host::Plain), u"new"_s);
    EXPECT_TRUE(host.Text1().isHidden());
    EXPECT_TRUE(host.grid->hasFocus());
    Keys(u"x⏎");
    EXPECT_TRUE(host.editor->RowDirty());
    EXPECT_TRUE(host.saved.isEmpty()) << "the cursor has not left the row";
    Keys(u"↓");
    EXPECT_EQ(host.saved, QList<int>{0});
    EXPECT_FALSE(host.editor->RowDirty());
    Keys(u"←←⏎"); // opens with what the cell holds
    EXPECT_EQ(host.Text1().selectedText(), u"old"_s);
    Keys(u"⏎↓");
    EXPECT_EQ(host.saved, QList<int>{0}) << "an unchanged text leaves the row as it was";
    host.failing = true;
    Keys(u"x⏎↓");
    EXPECT_TRUE(host.grid->IsMarkedUnsaved(host.sheet.index(2, 0)));
    host.failing = false;
    Keys(u"↑↓");
    EXPECT_EQ(host.saved, (QList<int>{0, 2, 2})) << "until it is saved";
    EXPECT_FALSE(host.grid->IsMarkedUnsaved(host.sheet.index(2, 0)));
}

TEST(CellEditor, ThrowsAwayWhatIsTypedOnEscapeErasureScrollAndLeaving) {
    const std::pair<const char*, std::function<void(Host&)>> ways[] = {
        {"Esc", [](Host&) { Keys(u"⎋"); }},
        {"erased",
         [](Host& host) {
             Keys(u"⌫cd");
             EXPECT_EQ(host.Text1().text(), u"cd"_s);
             Keys(u"⌫⌫⏎");
         }},
        {"scrolled", [](Host& host) { host.grid->verticalScrollBar()->setValue(5); }},
        {"focus lost", [](Host& host) { host.elsewhere->setFocus(); }},
    };
    for (const auto& [way, act] : ways) {
        Host host;
        host.Go(0, Host::Picked);
        Keys(u"b");
        act(host);
        EXPECT_TRUE(host.Text1().isHidden()) << way;
        EXPECT_TRUE(host.CmdLov().isHidden()) << way;
        EXPECT_EQ(host.sheet.Text(0, Host::Picked), QString()) << way;
        EXPECT_FALSE(host.editor->RowDirty()) << way;
    }
}

TEST(CellEditor, ShowsTheListOnItsColumnsOnlyAndShowsWhatWasPickedThere) {
    Host host;
    EXPECT_TRUE(host.CmdLov().isHidden());
    Keys(u"⑨");
    EXPECT_TRUE(host.pickedUnder.isEmpty());
    host.Go(0, Host::Picked);
    EXPECT_EQ(host.CmdLov().geometry().topLeft(), host.Cell().topRight() + QPoint(1, 0));
    Keys(u"⎇↓");
    EXPECT_EQ(host.reasons, QStringList{QString()}) << "asked for";
    host.editor->TakePicked(u"TL"_s);
    EXPECT_EQ(host.Text1().text(), u"TL"_s);
    EXPECT_EQ(host.sheet.Text(0, Host::Picked), QString()) << "not before it is entered";
    Keys(u"⏎");
    EXPECT_EQ(host.sheet.Text(0, Host::Picked), u"TL"_s);
}

TEST(CellEditor, StaysOverItsCellWhenColumnsMove) {
    Host host;
    Keys(u"a");
    host.grid->horizontalHeader()->resizeSection(Host::Code, 170);
    EXPECT_EQ(host.Text1().geometry(), host.Cell());
    host.grid->horizontalHeader()->moveSection(Host::Plain, 1);
    EXPECT_EQ(host.Text1().geometry(), host.Cell());
}

TEST(CellEditor, AsksBeforeUnsavedRowsAreThrownAway) {
    using Answer = Dialogs::Answer;
    const std::tuple<Answer, bool, bool, qsizetype> cases[] = {{Answer::Yes, false, true, 1},
                                                               {Answer::Yes, true, false, 1},
                                                               {Answer::No, false, true, 0},
                                                               {Answer::Cancel, false, false, 0}};
    for (const auto& [answer, failing, leaves, saves] : cases) {
        Host host;
        EXPECT_TRUE(host.editor->MayLeave());
        EXPECT_TRUE(host.dialogs.questions.isEmpty());
        Keys(u"new⏎");
        host.failing = failing;
        host.dialogs.answers = {answer};
        EXPECT_EQ(host.editor->MayLeave(), leaves);
        EXPECT_EQ(host.saved.size(), saves);
    }
}

TEST(CellEditor, KeysEnterWhatIsTypedAndGoOn) {
    const std::tuple<QString, int, int> cases[] = {
        {u"⏎"_s, 2, Host::Picked}, {u"↹"_s, 2, Host::Picked}, {u"⇤"_s, 2, Host::Code},
        {u"↑"_s, 1, Host::Plain},  {u"↓"_s, 3, Host::Plain},
    };
    for (const auto& [key, row, column] : cases) {
        Host host;
        host.Go(2, Host::Plain);
        Keys(u"x"_s + key);
        EXPECT_EQ(host.sheet.Text(2, Host::Plain), u"x"_s) << key.toStdString();
        EXPECT_EQ(host.grid->currentIndex(), host.sheet.index(row, column)) << key.toStdString();
        EXPECT_TRUE(host.grid->hasFocus());
        EXPECT_TRUE(host.told.isEmpty()) << "nothing is thrown away";
        EXPECT_EQ(host.saved.size(), row == 2 ? 0 : 1) << key.toStdString();
        EXPECT_EQ(host.grid->IsMarkedUnsaved(host.sheet.index(2, 0)), row == 2) << "until the row is left";
    }
    Host host;
    host.Go(0, Host::Locked);
    host.grid->MoveCursor({1, 0});
    EXPECT_EQ(host.grid->currentIndex(), host.sheet.index(0, Host::Locked)) << "no further";
    host.Go(0, Host::Code);
    Keys(u"zz↹");
    EXPECT_EQ(host.pickedUnder.size(), 1) << "a code is checked whichever key enters it";
    EXPECT_EQ(host.grid->currentIndex(), host.sheet.index(0, Host::Code));
}

TEST(CellEditor, SaysWhatItThrowsAwayAndCopiesNoSecret) {
    Host host;
    Keys(u"ab⎋");
    Keys(u"②⎋"); // as it was
    EXPECT_EQ(host.told, QStringList{u"Tidak disimpan: \"ab\" dibuang."_s});
    Keys(u"c⌫⏎");
    EXPECT_EQ(host.told.last(), u"Isi sel tetap \"old\": tidak ada yang diketik."_s);
    Keys(u"x⎈s");
    EXPECT_EQ(host.saved, QList<int>{0});
    EXPECT_FALSE(host.grid->IsMarkedUnsaved(host.sheet.index(0, 0)));
    host.Go(0, Host::Plain);
    Keys(u"⇧↓⇧→⇧→⎈c");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"x\t\t\nold\t\t\n"_s);
    const auto place = [&](int row, int column) {
        return host.grid->visualRect(host.sheet.index(row, column)).center();
    };
    QWidget* cells = host.grid->viewport();
    QTest::mousePress(cells, Qt::LeftButton, {}, place(1, Host::Code));
    QTest::mouseMove(cells, place(2, Host::Code));
    QTest::mouseMove(cells, place(2, Host::Plain));
    QTest::mouseRelease(cells, Qt::LeftButton, {}, place(2, Host::Plain));
    Keys(u"⎈c");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"A\told\nA\told\n"_s) << "dragged";
    host.Go(38, Host::Code);
    Keys(u"⎈⇧⇲⎈c");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"A\told\t\t\nA\told\t\t\n"_s);
}
