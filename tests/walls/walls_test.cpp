#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// The rooms from the ground up: each uses what stands before it.
const QStringList Rooms{u"database"_s, u"core"_s,   u"compute"_s, u"cards"_s, u"timecard"_s, u"reports"_s,
                        u"editing"_s,  u"shifts"_s, u"shell"_s,   u"app"_s};

bool IsWindow(const QString& file) {
    return file.startsWith(u"frm"_s);
}

/// Whether a file of a room may include something of another.
bool MayUse(const QString& room, const QString& file, const QString& used) {
    if (room == u"ui"_s)
        return used == u"ui"_s || used == u"core"_s || used == u"database"_s;
    if (used == u"ui"_s)
        return IsWindow(file) || room == u"app"_s;
    return Rooms.contains(used) && Rooms.indexOf(used) <= Rooms.indexOf(room);
}

} // namespace

TEST(Walls, NoRoomUsesWhatStandsAboveIt) {
    static const QRegularExpression include(u"^#include \"(\\w+)/"_s, QRegularExpression::MultilineOption);
    int checked = 0;
    for (const QString& room : Rooms + QStringList{u"ui"_s}) {
        QDirIterator files(QStringLiteral(SOURCE_FOLDER "/") + room, {u"*.h"_s, u"*.cpp"_s}, QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QString text = QString::fromUtf8(file.readAll());
            for (auto match = include.globalMatch(text); match.hasNext(); ++checked) {
                const QString used = match.next().captured(1);
                EXPECT_TRUE(MayUse(room, files.fileName(), used))
                    << files.filePath().toStdString() << " includes of " << used.toStdString();
            }
        }
    }
    EXPECT_GT(checked, 100);
}
