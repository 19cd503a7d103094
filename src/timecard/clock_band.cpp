#include "timecard/clock_band.h"

#include "core/supervisor_check.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

ClockBand::ClockBand(QWidget* parent) : QFrame(parent), text_(new QLabel(this)) {
    text_->setObjectName(u"lblClockDoubt"_s);
    text_->setProperty("look", u"band"_s);
    text_->setWordWrap(true);
    auto* right = new QPushButton(u"Jam sudah &benar"_s, this);
    right->setObjectName(u"cmdJamBenar"_s);
    right->setToolTip(u"Supervisor memeriksa jam komputer, lalu menghapus peringatan ini"_s);
    right->setAutoDefault(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(text_, 1);
    row->addWidget(right);
    connect(right, &QPushButton::clicked, this, &ClockBand::cmdJamBenar_Click);
    hide();
}

void ClockBand::Watch(Program& program) {
    program_ = &program;
    watch_ = std::make_unique<ClockWatch>(program.clock);
}

void ClockBand::Look(const std::optional<WallTime>& latestArrival) {
    if (!watch_)
        return;
    watch_->Look();
    watch_->Compare(latestArrival);
    ShowDoubt();
}

void ClockBand::cmdJamBenar_Click() {
    if (!modGeneral::AskAdminPass(*program_))
        return;
    watch_->Confirm();
    ShowDoubt();
}

void ClockBand::ShowDoubt() {
    text_->setText(watch_->Doubt()
                   + u" Absen tetap dicatat dan kartunya ditandai. Supervisor: periksa jam komputer."_s);
    setVisible(watch_->IsInDoubt());
}
