#include "core/cell_history.h"
#include "core/row_order.h"
#include "core/tabbed_text.h"

#include "support/test_company.h"

#include <map>

using namespace Qt::StringLiterals;

TEST(TabbedText, ReadsWhatSpreadsheetsWrite) {
    const std::pair<QString, QList<QStringList>> cases[] = {
        {u""_s, {}},
        {u"P"_s, {{u"P"_s}}},
        {u"P\tO\r\nS\t\r\n"_s, {{u"P"_s, u"O"_s}, {u"S"_s, u""_s}}},
        {u"a\rb\n\nc"_s, {{u"a"_s}, {u"b"_s}, {u""_s}, {u"c"_s}}},
        {u"\"a\tb\"\t\"say \"\"no\"\"\"\n\"two\nlines\""_s,
         {{u"a\tb"_s, u"say \"no\""_s}, {u"two\nlines"_s}}},
        {u"5\" wide\t\"open"_s, {{u"5\" wide"_s, u"open"_s}}},
    };
    for (const auto& [text, rows] : cases)
        EXPECT_EQ(ReadTabbedText(text), rows) << text.toStdString();
    const QList<QStringList> hard{{u"\"q"_s, u"a\tb"_s, u""_s}, {u"x\r\ny"_s, u"5\" wide"_s, u"'"_s}};
    EXPECT_EQ(ReadTabbedText(TabbedText(hard)), hard);
}

TEST(CellHistory, TakesBackWhatStillStandsThereAndNamesTheRest) {
    std::map<QString, QString> stored{{u"1"_s, u"A"_s}, {u"2"_s, u"A"_s}};
    const auto write = [&](const std::vector<CellChange>& changes) {
        CellsOutcome outcome;
        for (const CellChange& change : changes) {
            if (change.expected && stored[change.rowKey] != *change.expected)
                outcome.refused.push_back({change, u"changed"_s});
        }
        for (const CellChange& change : outcome.refused.empty() ? changes : std::vector<CellChange>()) {
            outcome.takeBack.push_back({change.rowKey, 0, stored[change.rowKey], change.text});
            stored[change.rowKey] = change.text;
        }
        return outcome;
    };
    CellHistory history;
    history.Record(write({{u"1"_s, 0, u"B"_s}, {u"2"_s, 0, u"B"_s}}).takeBack);
    history.Record(write({{u"1"_s, 0, u"C"_s}}).takeBack);
    history.Undo(write);
    EXPECT_EQ(stored[u"1"_s], u"B"_s);
    stored[u"2"_s] = u"X"_s; // another desk
    const CellHistory::Replayed back = history.Undo(write);
    EXPECT_EQ(back.written, 1);
    ASSERT_EQ(back.refused.size(), 1U);
    EXPECT_EQ(back.refused[0].change.rowKey, u"2"_s);
    EXPECT_EQ(stored[u"1"_s] + stored[u"2"_s], u"AX"_s);
    EXPECT_FALSE(history.CanUndo());
    history.Redo(write);
    history.Redo(write);
    EXPECT_EQ(stored[u"1"_s] + stored[u"2"_s], u"CX"_s);
    history.Undo(write);
    history.Record(write({{u"2"_s, 0, u"Y"_s}}).takeBack);
    EXPECT_FALSE(history.CanRedo()) << "what was saved since stands in its way";
}
