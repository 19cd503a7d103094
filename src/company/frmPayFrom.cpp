#include "company/frmPayFrom.h"

#include "ui/date_box.h"
#include "ui_frmPayFrom.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

frmPayFrom::frmPayFrom(Program& program, const QString& name, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmPayFrom>()) {
    ui_->setupUi(this);
    SetUpDateBoxes(*this, program);
    ui_->lblWhat->setText(u"Gaji atau tarif %1 berubah. Kartu sebelum tanggal ini tetap dihitung dengan yang "
                          "lama, juga bila dihitung ulang."_s.arg(name));
    ui_->cmdCancel->setProperty("leaves", true);
    const std::chrono::year_month_day today{program.clock.Today()};
    ui_->txtFrom->SetValue(Day{today.year() / today.month() / 1});
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmPayFrom::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmPayFrom::~frmPayFrom() = default;

Day frmPayFrom::From() const {
    return DayOf(ui_->txtFrom->Value());
}

void frmPayFrom::cmdOK_Click() {
    if (ReadTypedBoxes(*this))
        accept();
}

void frmPayFrom::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F6)
        cmdOK_Click();
    else
        QDialog::keyPressEvent(event);
}
