#include "core/shared_connection.h"
#include "support/bench_company.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"
#include "timecard/sheet_identifier.h"
#include "timecard/sheet_model.h"

#include <QCoreApplication>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// A start that has anything to tell the user has failed.
class NoDialogs : public Dialogs {
public:
    void Show(Icon, const QString& text) override { throw std::runtime_error(text.toStdString()); }
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

void ProgramStart(Rounds& rounds) {
    const CompanySize size{5000, 60};
    const QString file = CompanyFile(size);
    const ProgramFolder folder(CompanyFolder(size));
    const QString sheet = SheetIdentifierOf(LastSheetDay);
    while (rounds.Next()) {
        Start start(folder);
        rounds.Time("start", [&] { start.Run(sheet); });
        std::unique_ptr<PlainDatabase> plain;
        rounds.Time("plain", [&] {
            plain = std::make_unique<PlainDatabase>(file);
            plain->ReadAll("select * from employee ORDER BY NAMA");
            ReadSheetPlainly(*plain, sheet.toStdString());
        });
    }
    rounds.Compare("program-start-without-windows", "start", "plain", 5);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    BenchProgram program(argc, argv);
    program.Add("program_start_without_windows", Measured::ProcessorTime, 60, ProgramStart);
    return program.Run();
}
