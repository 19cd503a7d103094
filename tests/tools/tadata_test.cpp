#include "tools/demo_support.h"

#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

struct Outcome {
    int status = -1;
    QString output;
    QString errors;
};

/// Runs the real program.
Outcome Tadata(const QStringList& arguments, const QString& outputFile = {}) {
    QProcess process;
    if (!outputFile.isEmpty())
        process.setStandardOutputFile(outputFile);
    process.start(QStringLiteral(TADATA_PROGRAM), arguments);
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
}

class Tool : public testing::Test {
protected:
    QString MakeDemo(const QString& name) const {
        QString path = folder.filePath(name);
        MakeDemoCompany(path, DemoUntil(u"2026-11-21", 3, 1));
        return path;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(Tool, HelpIsGivenOnTheToolAndOnEachCommand) {
    const struct {
        QStringList arguments;
        QString says;
    } cases[] = {
        {{u"--help"_s}, u"demo"_s},
        {{u"-h"_s}, u"create"_s},
        {{u"--version"_s}, u"tadata 1."_s},
        {{u"create"_s, u"--help"_s}, u"create FILE"_s},
        {{u"demo"_s, u"--help"_s}, u"--until"_s},
        {{u"check"_s, u"FILE"_s, u"--help"_s}, u"check FILE"_s},
        {{u"import"_s, u"access"_s, u"--help"_s}, u"import access OLD.mdb NEW.mdb"_s},
    };
    for (const auto& [arguments, says] : cases) {
        const Outcome outcome = Tadata(arguments);
        EXPECT_EQ(outcome.status, 0) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(outcome.output.contains(says)) << outcome.output.toStdString();
        EXPECT_EQ(outcome.errors, QString());
    }
}

TEST_F(Tool, RefusesWhatItDoesNotUnderstandAndMakesNothing) {
    const QString file = folder.filePath(u"DATA.mdb"_s);
    const struct {
        QStringList arguments;
        QString says;
    } cases[] = {
        {{}, u"no command"_s},
        {{u"repair"_s, file}, u"\"repair\""_s},
        {{u"create"_s}, u"one FILE"_s},
        {{u"create"_s, file, file}, u"one FILE"_s},
        {{u"create"_s, u"--employees"_s, u"5"_s, file}, u"employees"_s},
        {{u"demo"_s, file, u"--bogus"_s}, u"bogus"_s},
        {{u"demo"_s, file, u"--employees"_s, u"0"_s}, u"\"0\""_s},
        {{u"demo"_s, file, u"--employees"_s, u"100000"_s}, u"\"100000\""_s},
        {{u"demo"_s, file, u"--employees"_s, u"12x"_s}, u"\"12x\""_s},
        {{u"demo"_s, file, u"--months"_s, u"-1"_s}, u"\"-1\""_s},
        {{u"demo"_s, file, u"--until"_s, u"2026-02-30"_s}, u"\"2026-02-30\""_s},
        {{u"demo"_s, file, u"--until"_s, u"2026-02-03 00:00:00"_s}, u"yyyy-mm-dd"_s},
        {{u"demo"_s, file, u"--until"_s, u"1949-12-31"_s}, u"1950"_s},
        {{u"create"_s, folder.filePath(u"nowhere/DATA.mdb"_s)}, u"cannot be made"_s},
        {{u"demo"_s, folder.path()}, u"exists"_s},
        {{u"import"_s, u"access"_s, file}, u"OLD.mdb NEW.mdb"_s},
        {{u"import"_s, u"access"_s, file, file}, u"cannot be read"_s},
        {{u"import"_s, u"employees"_s, file, file, u"--numbers"_s, u"1"_s}, u"1,000.5 or 1.000,5"_s},
        {{u"export"_s, file, u"Employee"_s, u"a.txt"_s}, u".csv or .xlsx"_s},
    };
    for (const auto& [arguments, says] : cases) {
        const Outcome outcome = Tadata(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(outcome.errors.contains(says)) << outcome.errors.toStdString();
        EXPECT_EQ(outcome.output, QString());
    }
    EXPECT_EQ(EntriesOf(folder.path()), QStringList());
}

TEST_F(Tool, EmployeesComeInWholeOrNotAtAllAndGoOutAgain) {
    const QString file = MakeDemo(u"DATA.mdb"_s);
    const QString list = folder.filePath(u"list.csv"_s);
    const auto import = [&](const QByteArray& text, const QStringList& options) {
        QFile out(list);
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(text);
        out.close();
        return Tadata(QStringList{u"import"_s, u"employees"_s, file, list} + options);
    };
    const auto employees = [&file] {
        return RowsOf(*OpenDatabaseFile(file), u"select NIP from Employee"_s).size();
    };
    const Outcome wrong = import("NIP,GP\n0101,1.5\n0102,12a\n", {});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_EQ(wrong.errors, u"line 3: GP \"12a\" is not a number\ntadata: nothing was written\n"_s);
    const QByteArray right = "NIK;Gaji;Dept\n0101;150.000;QC\n0102;160.000;QC\n";
    const Outcome dry = import(right, {u"--make-missing"_s, u"--dry-run"_s});
    EXPECT_EQ(dry.status, 0);
    EXPECT_TRUE(dry.output.contains(u"numbers as 1.000,5"_s)) << dry.output.toStdString();
    EXPECT_EQ(employees(), 3);
    EXPECT_EQ(import(right, {u"--make-missing"_s}).status, 0);
    EXPECT_EQ(employees(), 5);
    const QString out = folder.filePath(u"out.csv"_s);
    EXPECT_EQ(Tadata({u"export"_s, file, u"employee"_s, out}).status, 0);
    EXPECT_TRUE(BytesOf(out).contains("\"0102\",,\"QC\""));
    EXPECT_EQ(Tadata({u"export"_s, file, u"employee"_s, out}).status, 2);
    EXPECT_TRUE(import(BytesOf(out), {}).output.contains(u"0 added, 0 changed, 5 unchanged"_s));
}

TEST_F(Tool, CheckPrintsFindingsAndChangesNothing) {
    const QString file = MakeDemo(u"DATA.mdb"_s);
    OpenDatabaseFile(file)->Execute(u"UPDATE Employee SET Dept='ZZ' WHERE NIP='0002'"_s);
    const QByteArray bytes = BytesOf(file);
    const QStringList entries = EntriesOf(folder.path());
    const Outcome outcome = Tadata({u"check"_s, file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, u"Employee 0002: unknown department \"ZZ\"\n"_s);
    EXPECT_EQ(outcome.errors, QString());
    EXPECT_EQ(BytesOf(file), bytes);
    EXPECT_EQ(EntriesOf(folder.path()), entries);
}

TEST_F(Tool, CheckTellsWhyAFileCannotBeRead) {
    const auto altered = [this](const QString& name, const QString& statement) {
        QString path = MakeDemo(name);
        OpenDatabaseFile(path)->ExecuteNative(statement);
        return path;
    };
    const auto written = [this](const QString& name, const QByteArray& bytes) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    };
    const QString locked = MakeDemo(u"locked.mdb"_s);
    const QByteArray whole = BytesOf(locked); // before the lock, which reading here would end
    const auto other = OpenDatabaseFile(locked);
    other->ExecuteNative(u"BEGIN EXCLUSIVE"_s);
    const struct {
        QString file;
        QString says;
    } cases[] = {
        {folder.filePath(u"missing.mdb"_s), u"missing.mdb does not exist"_s},
        {folder.path(), u"does not exist"_s},
        {written(u"text.mdb"_s, QByteArray("no database ").repeated(100)), u"file is not a database: "_s},
        {written(u"empty.mdb"_s, {}), u"empty.mdb is empty or not a database of this program"_s},
        {written(u"cut.mdb"_s, whole.chopped(100)), u"incomplete page: "_s},
        {locked, u"database is locked: "_s},
        {altered(u"newer.mdb"_s, u"PRAGMA user_version=99"_s), u"of version 99; the newest known is "_s},
        {altered(u"older.mdb"_s, u"PRAGMA user_version=0"_s), u"older version"_s},
        {altered(u"incomplete.mdb"_s, u"DROP TABLE AbsenTipe"_s), u"the database lacks absentipe"_s},
    };
    const QStringList entries = EntriesOf(folder.path());
    static const QRegularExpression indonesian(u"\\b(tidak|bukan|sedang|yang|atau)\\b"_s);
    for (const auto& [file, says] : cases) {
        const Outcome outcome = Tadata({u"check"_s, file});
        EXPECT_EQ(outcome.status, 2) << file.toStdString();
        EXPECT_TRUE(outcome.errors.contains(says)) << outcome.errors.toStdString();
        EXPECT_FALSE(outcome.errors.contains(indonesian)) << outcome.errors.toStdString();
        EXPECT_EQ(outcome.output, QString());
    }
    EXPECT_EQ(EntriesOf(folder.path()), entries);
}

TEST_F(Tool, PunchesComeInAndProblemsAreToldByLineAndExitStatus) {
    const QString file = MakeDemo(u"DATA.mdb"_s);
    const QString punches = folder.filePath(u"mesin.txt"_s);
    QFile text(punches);
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("0001\t2030-01-07 07:50:00\n");
    text.close();
    const QStringList import{u"import"_s, u"punches"_s, file, punches};
    const QStringList problems{u"problems"_s, file, u"--from"_s, u"2030-01-07"_s, u"--to"_s, u"2030-01-07"_s};
    EXPECT_EQ(Tadata(problems).status, 0);
    EXPECT_TRUE(Tadata(import + QStringList{u"--dry-run"_s}).output.contains(u"1 kartu baru"_s));
    EXPECT_EQ(Tadata(import).output, u"form: nip tab moment\n1 kartu baru, 0 kartu dilengkapi; 1 masuk\n"_s);
    EXPECT_EQ(Tadata(import).output,
              u"form: nip tab moment\n0 kartu baru, 0 kartu dilengkapi; 1 sudah tercatat\n"_s);
    EXPECT_EQ(Tadata(import + QStringList{u"--format"_s, u"nip"_s}).status, 2);
}
