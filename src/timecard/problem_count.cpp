#include "timecard/problem_count.h"

using namespace Qt::StringLiterals;

namespace {
constexpr std::chrono::minutes CountEvery{5};
constexpr std::chrono::hours CountAnywayEvery{1}; ///< time alone makes a departure overdue
} // namespace

ProblemCount::ProblemCount(Program& program, Counter count, QWidget* parent)
    : QPushButton(parent), program_(program), count_(std::move(count)) {
    setObjectName(u"lblProblems"_s);
    setFlat(true);
    setAutoDefault(true);
    setToolTip(u"Kartu tujuh hari terakhir yang perlu diperiksa"_s);
    hide();
}

void ProblemCount::Tick(bool atOnce) {
    if (!count_)
        return;
    const WallTime now = program_.clock.Now();
    const Seconds since = std::chrono::abs(now - counted_);
    if (!atOnce && since < CountEvery)
        return;
    try {
        const ChangeStamp changes = program_.Db().Changes();
        if (!atOnce && changes == changes_ && since < CountAnywayEvery)
            return;
        const int count = count_(program_.Db(), now);
        changes_ = changes;
        setText(u"%1 kartu bermasalah"_s.arg(count));
        setVisible(count > 0);
    } catch (const DatabaseError&) {
        hide(); // the refresh tells what is wrong with the database
    }
    counted_ = now;
}
