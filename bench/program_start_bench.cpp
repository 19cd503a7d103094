#include "cards/sheet_identifier.h"
#include "core/shared_connection.h"
#include "support/bench_company.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"
#include "timecard/frmMain.h"
#include "timecard/sheet_model.h"
#include "ui/theme.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// A start that has anything to tell the user has failed.
class NoDialogs : public Dialogs {
public:
    void Show(Icon, const QString& text) override { throw std::runtime_error(text.toStdString()); }
    Answer Ask(const QString& question, Answer) override { throw std::runtime_error(question.toStdString()); }
};

/// What a start does before the first window can show the sheet, without the windows.
class Start {
public:
    explicit Start(const ProgramFolder& folder) : folder_(folder) {}

    void Run(const QString& sheet) {
        b_global::OpenConnection(shared_, folder_, dialogs_);
        model_.LoadEmployees(shared_.Get(), u" ORDER BY NAMA"_s);
        model_.Refresh(shared_.Get(), sheet);
    }

private:
    const ProgramFolder& folder_;
    NoDialogs dialogs_;
    BenchClock clock_;
    b_global::SharedConnection shared_;
    SheetModel model_{clock_};
};

/// The whole start, from the first object to the painted desk.
class DeskStart {
public:
    explicit DeskStart(const ProgramFolder& folder)
        : program_{folder, clock_, dialogs_, log_, shared_, [](LoginHandOver&) {}, {}},
          desk_(program_, skin_, {.userCountry = [] { return u"United States"_s; }}) {}

    void Run() {
        if (!desk_.Form_Load())
            throw std::runtime_error("the desk did not open");
        desk_.show();
        QApplication::processEvents();
    }

private:
    NoDialogs dialogs_;
    BenchClock clock_;
    modGeneral::ErrorLog log_;
    b_global::SharedConnection shared_;
    b_form_skin::Backgrounds skin_;
    Program program_;
    frmMain desk_;
};

void AddPictures(const QString& folder) {
    const QDir assets(QStringLiteral(ASSETS_FOLDER));
    QDir(folder).mkpath(u"images"_s);
    for (const QString& picture : {u"images/back_big.gif"_s, u"images/back_litle.gif"_s,
                                   u"images/back_midle.gif"_s, u"images/back.gif"_s})
        QFile::copy(assets.filePath(picture), folder + u'/' + picture);
}

void ReadPlainly(const QString& file, const QString& sheet) {
    PlainDatabase plain(file);
    plain.ReadAll("select * from employee ORDER BY NAMA");
    ReadSheetPlainly(plain, sheet.toStdString());
}

void DeskOpens(Rounds& rounds) {
    const CompanySize size{5000, 60};
    const QString file = CompanyFile(size);
    AddPictures(CompanyFolder(size));
    const ProgramFolder folder(CompanyFolder(size));
    while (rounds.Next()) {
        std::unique_ptr<DeskStart> start;
        rounds.Time("desk", [&] {
            start = std::make_unique<DeskStart>(folder);
            start->Run();
        });
        rounds.Time("plain", [&] { ReadPlainly(file, SheetIdentifierOf(LastSheetDay)); });
    }
    rounds.Compare("program-start", "desk", "plain", 5);
}

void ProgramStart(Rounds& rounds) {
    const CompanySize size{5000, 60};
    const QString file = CompanyFile(size);
    const ProgramFolder folder(CompanyFolder(size));
    const QString sheet = SheetIdentifierOf(LastSheetDay);
    while (rounds.Next()) {
        Start start(folder);
        rounds.Time("start", [&] { start.Run(sheet); });
        rounds.Time("plain", [&] { ReadPlainly(file, sheet); });
    }
    rounds.Compare("program-start-without-windows", "start", "plain", 5);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    Theme::Apply(application);
    BenchProgram program(argc, argv);
    program.Add("program_start", Measured::ProcessorTime, 40, DeskOpens);
    program.Add("program_start_without_windows", Measured::ProcessorTime, 60, ProgramStart);
    return program.Run();
}
