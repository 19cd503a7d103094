#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// The rooms from the ground up: each uses what stands before it.
const QStringList Rooms{u"database"_s, u"core"_s,    u"compute"_s,  u"cards"_s,   u"timecard"_s,
                        u"shifts"_s,   u"reports"_s, u"exchange"_s, u"company"_s, u"editing"_s,
                        u"shell"_s,    u"tools"_s,   u"app"_s};

struct SourceFile {
    QString path; ///< below the source folder
    QString room;
    QString name;
    QString text;
    bool isWindow; ///< it has a form, or is a part of one that has
};

void ForEachFile(const std::function<void(const SourceFile&)>& check) {
    const QDir folder(QStringLiteral(SOURCE_FOLDER));
    QDirIterator files(folder.path(), {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    int checked = 0;
    for (; files.hasNext(); ++checked) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QFileInfo place(file);
        const QString path = folder.relativeFilePath(place.filePath());
        const QString text = QString::fromUtf8(file.readAll());
        check({path, path.section(u'/', 0, 0), place.fileName(), text,
               text.contains(u"#include \"ui_"_s)
                   || QFile::exists(place.path() + u'/' + place.baseName() + u".ui"_s)});
    }
    EXPECT_GT(checked, 150);
}

/// The string literals of a file, those that follow each other joined.
QStringList Literals(const SourceFile& file) {
    static const QRegularExpression between(u"(?<!\\\\)\"\\s*\""_s);
    static const QRegularExpression literal(u"\"((?:[^\"\\\\\\n]|\\\\.)*)\""_s);
    static const QRegularExpression comment(u"^\\s*//.*$"_s, QRegularExpression::MultilineOption);
    const QString text = QString(file.text).remove(comment).remove(between);
    QStringList found;
    for (auto match = literal.globalMatch(text); match.hasNext();)
        found << match.next().captured(1);
    return found;
}

/// Whether a file may include something of another room.
bool MayUse(const SourceFile& file, const QString& used) {
    if (file.room == u"ui"_s)
        return used == u"ui"_s || used == u"core"_s || used == u"database"_s;
    if (used == u"ui"_s)
        return file.isWindow || file.room == u"app"_s;
    return Rooms.contains(used) && Rooms.indexOf(used) <= Rooms.indexOf(file.room);
}

} // namespace

TEST(Walls, NoRoomUsesWhatStandsAboveIt) {
    static const QRegularExpression include(u"^#include \"(\\w+)/"_s, QRegularExpression::MultilineOption);
    ForEachFile([](const SourceFile& file) {
        if (!Rooms.contains(file.room) && file.room != u"ui"_s)
            return;
        for (auto match = include.globalMatch(file.text); match.hasNext();) {
            const QString used = match.next().captured(1);
            EXPECT_TRUE(MayUse(file, used))
                << file.name.toStdString() << " includes of " << used.toStdString();
        }
    });
}

TEST(Walls, WindowsAndWidgetsHoldNoStatement) {
    static const QRegularExpression statement(
        u"\\b(from|into|join|exec)\\s+[\\[`\\w]|\\border\\s+by\\b|\\bset\\s+\\S+\\s*=|\\bwhere\\s"_s,
        QRegularExpression::CaseInsensitiveOption);
    ForEachFile([](const SourceFile& file) {
        if (file.isWindow || file.room == u"ui"_s || file.room == u"app"_s) {
            EXPECT_EQ(Literals(file).filter(statement).join(u'\n').toStdString(), "")
                << file.name.toStdString();
        }
    });
}

TEST(Walls, WidgetsKnowNoStatusCode) {
    static const QRegularExpression code(u"= u\"(\\w+)\";"_s);
    QStringList codes;
    ForEachFile([&codes](const SourceFile& file) {
        for (auto match = code.globalMatch(file.name == u"status_codes.h"_s ? file.text : QString());
             match.hasNext();)
            codes << match.next().captured(1);
    });
    EXPECT_GE(codes.size(), 10);
    ForEachFile([&codes](const SourceFile& file) {
        if (file.room != u"ui"_s)
            return;
        EXPECT_FALSE(file.text.contains(u"status_codes.h"_s)) << file.name.toStdString();
        for (const QString& literal : Literals(file))
            EXPECT_FALSE(codes.contains(literal)) << file.name.toStdString() << ": " << literal.toStdString();
    });
}

TEST(Walls, OnlyTheCardsRoomNamesTheTablesOfTheCards) {
    // The saved queries stand in the dialect, the check reads a database as it lies.
    static const QRegularExpression mayName(
        u"^(cards/|database/\\w*schema|database/sqlite_dialect\\.cpp$|tools/data_check\\.cpp$)"_s);
    ForEachFile([](const SourceFile& file) {
        if (file.path.contains(mayName))
            return;
        for (const QString& table : {u"TimeCardHeader"_s, u"TimeCardDetail"_s}) {
            EXPECT_TRUE(Literals(file).filter(table, Qt::CaseInsensitive).isEmpty())
                << file.path.toStdString() << " names " << table.toStdString();
        }
    });
}
